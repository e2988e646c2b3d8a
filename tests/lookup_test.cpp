#include "names/lookup.h"

#include "schema/parser.h"
#include "support.h"

namespace zentho::idlgen {
namespace {

constexpr auto none = Scope::Part::None;
constexpr auto request = Scope::Part::Request;
constexpr auto response = Scope::Part::Response;

struct TypeRow {
  const char* name;
  const char* type;
  const char* record;  ///< The user of the type.
  Scope::Part part;
  Result result;
};
using TypesOfMembers = testing::TestWithParam<TypeRow>;

/// In the header, `Late` stands before the messages, and `Send` after all of them.
constexpr const char* file =
    "namespace a.b.a enum E { I: 0 E: 1 } service Send { request { } response { } } "
    "message First { } message b { } message Last { } enum Late { } "
    "service Use { request { } response { } } service End { request { } response { } }";

TEST_P(TypesOfMembers, AreLookedUpAsInTheHeader) {
  IDL idl;
  idl.tokenize(file);
  Schema schema;
  Words words;
  Parser().parseSilently(idl, schema, words);
  const LeftOut leftOut;
  Declarations declarations;
  declarations.add(words, leftOut);
  const Sight sight(declarations);
  const Scope user = {declarations.record(0, GetParam().record), GetParam().part};
  const Lookup lookup(declarations, sight, 0, false);
  EXPECT_EQ(lookup.findType(GetParam().type, user).result, GetParam().result);
}

constexpr TypeRow typeRows[] = {
    {"MessageAbove", "First", "Last", none, Result::Type},
    {"MessageBelow", "Last", "First", none, Result::Below},
    {"EnumBelow", "Late", "First", none, Result::Type},
    {"ServiceOfAMessage", "Send", "Last", none, Result::Below},
    {"ServiceAbove", "Send", "Use", request, Result::Service},
    {"ServiceBelow", "End", "Use", request, Result::Below},
    {"HiddenByAnItem", "E", "Last", none, Result::Item},
    {"Item", "I", "Last", none, Result::Item},
    {"Unknown", "None", "Last", none, Result::Unknown},
    {"Itself", "Last", "Last", none, Result::Itself},
    {"ItselfByItsPath", "a.Last", "Last", none, Result::Itself},
    {"WholePath", "a.First", "Last", none, Result::Type},
    {"InnerNamespaceHidesTheOuterOne", "a.b.a.First", "Last", none, Result::Unknown},
    {"MessageHidesANamespace", "b.a.First", "Last", none, Result::Unknown},
    {"NamespaceBeforeTheMessageThatHidesIt", "b.a.First", "First", none, Result::Itself},
    {"LeadingDot", ".None", "Last", none, Result::Elsewhere},
    {"Library", "std.None", "Last", none, Result::Elsewhere},
    {"Framework", "zentho.None", "Last", none, Result::Elsewhere},
    {"PartOfAServiceAbove", "Send.Request", "Use", response, Result::Type},
    {"PartByItsPath", "a.Send.Response", "Use", request, Result::Type},
    {"PartOfAServiceBelow", "End.Request", "Use", request, Result::Below},
    {"NoPart", "Send.None", "Use", request, Result::Unknown},
    {"NothingInAMessage", "First.First", "Last", none, Result::Unknown},
    {"NothingInAnEnum", "E.I", "Last", none, Result::Unknown},
    {"OwnRequest", "Request", "Use", request, Result::Itself},
    {"RequestInTheResponse", "Request", "Use", response, Result::Type},
    {"ResponseInTheRequest", "Response", "Use", request, Result::LaterPart},
    {"OwnResponseByItsPath", "Use.Response", "Use", response, Result::Itself},
    {"ResponseInTheRequestByItsPath", "Use.Response", "Use", request, Result::LaterPart}};
INSTANTIATE_TEST_SUITE_P(Lookup, TypesOfMembers, testing::ValuesIn(typeRows), RowName<TypeRow>);

}  // namespace
}  // namespace zentho::idlgen
