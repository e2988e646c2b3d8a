#include "check/declarations.h"

#include "support.h"

namespace zentho {
namespace {

constexpr auto none = Scope::Part::None;
constexpr auto request = Scope::Part::Request;
constexpr auto response = Scope::Part::Response;

struct TypeRow {
  const char* name;
  const char* type;
  const char* record;  ///< The user of the type.
  Scope::Part part;
  Lookup lookup;
};
using TypesOfMembers = testing::TestWithParam<TypeRow>;

/// In the header, `Late` stands before the messages, and `Send` behind all of them.
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
  const Declarations declarations(words, words.size());
  const Scope user = {declarations.record(GetParam().record), GetParam().part};
  EXPECT_EQ(declarations.findType(GetParam().type, user).lookup, GetParam().lookup);
}

constexpr TypeRow typeRows[] = {
    {"MessageAbove", "First", "Last", none, Lookup::Type},
    {"MessageBelow", "Last", "First", none, Lookup::Below},
    {"EnumBelow", "Late", "First", none, Lookup::Type},
    {"ServiceOfAMessage", "Send", "Last", none, Lookup::Below},
    {"ServiceAbove", "Send", "Use", request, Lookup::Service},
    {"ServiceBelow", "End", "Use", request, Lookup::Below},
    {"HiddenByAnItem", "E", "Last", none, Lookup::Item},
    {"Item", "I", "Last", none, Lookup::Item},
    {"Unknown", "None", "Last", none, Lookup::Unknown},
    {"Itself", "Last", "Last", none, Lookup::Itself},
    {"ItselfByItsPath", "a.Last", "Last", none, Lookup::Itself},
    {"WholePath", "a.First", "Last", none, Lookup::Type},
    {"InnerNamespaceHidesTheOuterOne", "a.b.a.First", "Last", none, Lookup::Unknown},
    {"MessageHidesANamespace", "b.a.First", "Last", none, Lookup::Unknown},
    {"NamespaceBeforeTheMessageThatHidesIt", "b.a.First", "First", none, Lookup::Itself},
    {"LeadingDot", ".None", "Last", none, Lookup::Elsewhere},
    {"Library", "std.None", "Last", none, Lookup::Elsewhere},
    {"Framework", "zentho.None", "Last", none, Lookup::Elsewhere},
    {"PartOfAServiceAbove", "Send.Request", "Use", response, Lookup::Type},
    {"PartByItsPath", "a.Send.Response", "Use", request, Lookup::Type},
    {"PartOfAServiceBelow", "End.Request", "Use", request, Lookup::Below},
    {"NoPart", "Send.None", "Use", request, Lookup::Unknown},
    {"NothingInAMessage", "First.First", "Last", none, Lookup::Unknown},
    {"NothingInAnEnum", "E.I", "Last", none, Lookup::Unknown},
    {"OwnRequest", "Request", "Use", request, Lookup::Itself},
    {"RequestInTheResponse", "Request", "Use", response, Lookup::Type},
    {"ResponseInTheRequest", "Response", "Use", request, Lookup::Unknown},
    {"OwnResponseByItsPath", "Use.Response", "Use", response, Lookup::Itself},
    {"ResponseInTheRequestByItsPath", "Use.Response", "Use", request, Lookup::Unknown}};
INSTANTIATE_TEST_SUITE_P(Declarations, TypesOfMembers, testing::ValuesIn(typeRows),
                         RowName<TypeRow>);

}  // namespace
}  // namespace zentho
