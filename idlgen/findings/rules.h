#pragma once

#include <cstdint>
#include <string_view>

namespace zentho::idlgen {

enum class Severity : std::uint8_t { Error, Warning };

/// What to look for if a rule has no advice for all words.
enum class Hint : std::uint8_t {
  None,
  Form,         ///< What the characters of the word suggest.
  ItemValue,    ///< That an item needs a value, or which item is similar.
  SimilarType,  ///< A type with a similar name, or what the record above lacks.
};

/// Something that a file must not contain, and what is said about it. In the sentence, `%` stands
/// for the word at fault and `@` for the record that contains the other place. In the note, `%`
/// stands for the word at the other place.
struct Rule {
  Severity severity;
  std::string_view sentence;
  std::string_view advice = {};             ///< What to do, or why: unless a finding has its own.
  std::string_view example = {};            ///< Of what the advice says.
  std::string_view note = "declared here";  ///< About the other place, if there is one.
  Hint hint = Hint::None;
  bool doubtsRole = false;  ///< Though a warning: the word may be meant as something else.

  constexpr Rule& withNote(std::string_view text) {
    note = text;
    return *this;
  }
  constexpr Rule& with(Hint wanted) {
    hint = wanted;
    return *this;
  }
  constexpr Rule& thatDoubtsRole() {
    doubtsRole = true;
    return *this;
  }
};

namespace rules {

constexpr Rule Error(std::string_view sentence, std::string_view advice = {},
                     std::string_view example = {}) {
  return {Severity::Error, sentence, advice, example};
}

constexpr Rule Warning(std::string_view sentence, std::string_view advice = {},
                       std::string_view example = {}) {
  return {Severity::Warning, sentence, advice, example};
}

// Words that cannot be what their place means.
inline constexpr Rule notAName = Error(R"("%" is not a name)").with(Hint::Form);
inline constexpr Rule notAType = Error(R"("%" is not a type)").with(Hint::Form);
inline constexpr Rule notAValue = Error(R"("%" is not a value)").with(Hint::Form);
inline constexpr Rule notAPath = Error("% is not a path").with(Hint::Form);

// Words that the grammar does not want, or that give all after them another role.
inline constexpr Rule carriageReturns = Error("lines end with CR LF", "end them with LF");
inline constexpr Rule tabs = Error("there are tabs between words", "use spaces");
inline constexpr Rule notAStatement = Error(R"("%" is not a statement)");
inline constexpr Rule unknownStatement =
    Error(R"("%" is not a statement)",
          "a statement begins with include, namespace, enum, message or service");
inline constexpr Rule membersOutside =
    Error(R"("%" is not a statement)", "members stand in a message", "message M { x: int8 }");
inline constexpr Rule itemsOutside =
    Error(R"("%" is not a statement)", "items stand in an enum", "enum E { A: 0 }");
inline constexpr Rule afterIncludePath =
    Error(R"("%" is not a statement)", "an include has one path, in quotes and without spaces");
inline constexpr Rule unknownPath =
    Error(R"("%" is not a statement)", R"(write include "dir/file.idl")");
inline constexpr Rule afterNamespace =
    Error(R"("%" is not a statement)", "a namespace is one word");
inline constexpr Rule bareKeyword = Error(R"("%" is followed by nothing on its line)");
inline constexpr Rule namespaceWithBraces =
    Error(R"("%" is not a statement)", "a namespace has no braces");
inline constexpr Rule unopened = Error(R"("%" is not a statement)", R"(there is no "{" for it)");
inline constexpr Rule secondNamespace =
    Error("the namespace is set already", "a file has only one").withNote("the first one is here");
inline constexpr Rule endOfFile =
    Error("% is missing at the end of the file").withNote("this % is not complete");
inline constexpr Rule missingOpening = Error(R"(a "{" is missing after "%")");
inline constexpr Rule afterName = Error(R"("%" is not "{")", "only a name stands before it");
inline constexpr Rule colonsInName =
    Error(R"("%" is not "{")", "a name is one word, without colons");
inline constexpr Rule partWithoutBraces =
    Error(R"("%" is not "{")", "a request or response is members in braces");
inline constexpr Rule underlyingType =
    Error(R"("%" is not "{")", "the underlying type of an enum cannot be chosen");
inline constexpr Rule baseOfMessage = Error(R"("%" is not "{")", "messages have no base");
inline constexpr Rule baseOfService = Error(R"("%" is not "{")", "services have no base");
inline constexpr Rule notAnEnd = Error(R"("%" is not "}")");
inline constexpr Rule afterResponse =
    Error(R"("%" is not "}")", "a service has one request and one response, in this order");
inline constexpr Rule notABrace = Error(R"("%" is not a brace)");
inline constexpr Rule notAPart = Error(R"("%" is neither "request" nor "response")");
inline constexpr Rule notARequest = Error(R"("%" is not "request")");
inline constexpr Rule notAResponse = Error(R"("%" is not "response")");
inline constexpr Rule missingRequest =
    Error(R"("%" is not "request")", "a service has one request and one response",
          "request { a: A } response { b: B }");
inline constexpr Rule missingResponse =
    Error(R"("%" is not "response")", "a service has one request and one response",
          "request { a: A } response { b: B }");
inline constexpr Rule responseFirst =
    Error(R"("%" is not "request")", "a service begins with its request");
inline constexpr Rule missingClosing = Error(R"(a "}" is missing before this "%")");
inline constexpr Rule missingEnd =
    Error(R"(a "}" is missing before this "%")", "declarations cannot be nested");
inline constexpr Rule blockInMembers =
    Error(R"("%" is not a member)", "a member is a name and one word for the type");
inline constexpr Rule blockAsType = Error(R"("%" is not a type)", "declare a message for it");
inline constexpr Rule blockInEnum =
    Error(R"("%" is not an item)", "an item is a name and one word for the value");
inline constexpr Rule missingName = Error(R"(a name is missing before the "%")");
inline constexpr Rule nameless = Error(R"("%" has no name)");
inline constexpr Rule missingType = Error(R"("%" has no type)");
inline constexpr Rule missingValue = Error(R"("%" has no value)", "each item needs one", "A: 0");
inline constexpr Rule extraWordOfName = Error(R"("%" is a word too many before the name)");
inline constexpr Rule extraWordOfType =
    Error(R"("%" is a word too many)", "a member is a name and one word for the type");
inline constexpr Rule extraWordOfValue =
    Error(R"("%" is a word too many)", "an item is a name and one word for the value");
inline constexpr Rule severalNames =
    Error(R"("%" is not a member)", "each has a name and a type", "x: int8 y: int8");
inline constexpr Rule foreignLine = Error(R"("%" is of another language)", "delete the line");
inline constexpr Rule colonsInType =
    Error(R"("%::" is not a type)", "write a dot between names", "a.B");
inline constexpr Rule colonsInValue =
    Error(R"("%::" is not a value)", "write only the name of an item above");

// Names.
inline constexpr Rule keywordAsName =
    Error(R"("%" is a keyword of C++ and cannot be a name)").with(Hint::Form);
inline constexpr Rule laterKeyword = Warning(R"("%" is a keyword since C++20)");
inline constexpr Rule reservedName =
    Warning(R"("%" is reserved for the compiler)", "names should not begin like this");
inline constexpr Rule builtinTypeAsName =
    Warning(R"("%" is a built-in type)", "put the name first", "x: int8").thatDoubtsRole();
inline constexpr Rule emptyNamespace = Warning(R"("%" has an empty part)");
inline constexpr Rule hidesStd = Warning(R"("%" hides the namespace of the C++ library)");
inline constexpr Rule hidesNeededStd =
    Error(R"("%" hides the namespace of the C++ library, which a type here needs)");
inline constexpr Rule globalNamespace =
    Error(R"("%" is a namespace already)", "choose another name");
inline constexpr Rule nestedTypeAsService =
    Error(R"(a service cannot be named "%")", "it contains a type of that name");
inline constexpr Rule declaredTwice = Error(R"("%" is already declared)");
inline constexpr Rule isNamespace = Error(R"("%" is already a namespace)");
inline constexpr Rule hiddenNamespace =
    Error(R"("%" is also declared in zentho, where the functions of the header stand)");
inline constexpr Rule itemTwice = Error(R"("%" is already an item of @)");
inline constexpr Rule memberTwice = Error(R"("%" is already a member of @)");
inline constexpr Rule frameworkName =
    Error(R"("%" is a name of the framework, which the header needs)", "choose another one");
inline constexpr Rule frameworkNameToo =
    Warning(R"("%" is a name of the framework, which other headers need)", "choose another one");
inline constexpr Rule changesMeaning =
    Warning(R"("%" is a type above)", "some compilers reject a member of that name");
inline constexpr Rule changesMeaningBelow =
    Warning(R"("%" is a type below)", "some compilers reject a member of that name");
inline constexpr Rule changesMeaningOfUse =
    Warning(R"("%" is a type above)", "some compilers reject a member of that name")
        .withNote("used here");

// Types.
inline constexpr Rule keywordAsType = Error(R"("%" is a keyword of C++ and not a type)");
inline constexpr Rule builtinInTemplate =
    Error(R"("%" is not a type of C++, as template arguments must be)").with(Hint::Form);
inline constexpr Rule uncheckedTemplate =
    Warning(R"("%" is C++ and is copied unchecked)").with(Hint::Form);
inline constexpr Rule laterType = Warning(R"("%" is a type since C++20)");
inline constexpr Rule notDeclared = Error(R"("%" is not declared)").with(Hint::SimilarType);
inline constexpr Rule declaredBelow =
    Error(R"("%" is declared below)", "move it above the types that use it");
inline constexpr Rule perhapsDeclaredBelow =
    Warning(R"("%" is declared below)", "it is not the type that is meant here");
inline constexpr Rule responseInRequest =
    Error(R"("%" is declared below)", "a request cannot contain the response");
inline constexpr Rule serviceInMessage =
    Error(R"("%" belongs to a service, which messages cannot use)");
inline constexpr Rule containsItself =
    Error(R"("%" cannot contain itself)", "only a vector of it can be a member");
inline constexpr Rule hiddenByMember = Error(R"("%" is a member here, which hides the type)");
inline constexpr Rule hiddenByItem = Error(R"("%" is an item of @, which hides the type)");
inline constexpr Rule memberAsType = Error(R"("%" is a member, not a type)");
inline constexpr Rule itemAsType = Error(R"("%" is an item of @, not a type)");
inline constexpr Rule namespaceAsType = Error(R"("%" is a namespace, not a type)");
inline constexpr Rule hiddenLibrary =
    Error(R"("%" needs the namespace of the C++ library, which is hidden here)");
inline constexpr Rule serviceAsType = Warning(
    R"("%" is a service, for which there is no serialization)", "use its Request or Response");

// Values.
inline constexpr Rule tooLarge = Warning(R"("%" has more than 64 bits)");
inline constexpr Rule wideCharacter =
    Warning("%: some compilers reject this character", "write its number");
inline constexpr Rule uncheckedValue = Warning(R"("%" is C++ and is copied unchecked)");
inline constexpr Rule typeAsItem = Error(R"("%" is a type, not an item)");
inline constexpr Rule notAnItem =
    Warning(R"("%" is not an item above)").with(Hint::ItemValue).thatDoubtsRole();

// Includes.
inline constexpr Rule unquotedPath =
    Warning("% is not in quotes", R"(write "dir/file.idl", with the quotes)");
inline constexpr Rule unterminatedPath =
    Warning("% has no closing quote", R"(a path ends before a space, ":", "#" and "//")");
inline constexpr Rule notFound = Warning("% is not found");
inline constexpr Rule unreadable = Warning("% cannot be read");
inline constexpr Rule cycle = Warning("% includes this file, too", "one of them may not compile");
inline constexpr Rule includesItself = Warning("% is this file itself");
inline constexpr Rule misfit = Error(R"("%" is declared in an included file already)");
inline constexpr Rule sameHeader = Warning("the header of this file is that of %, too");
inline constexpr Rule noExtension = Warning(R"(% has no extension, such as ".idl")");

}  // namespace rules
}  // namespace zentho::idlgen
