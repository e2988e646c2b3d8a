#pragma once

#include <cstdint>
#include <string_view>

namespace zentho::idlgen {

enum class Severity : std::uint8_t { Error, Warning };

/// Which advice follows the sentence of a rule.
enum class Hint : std::uint8_t {
  None,
  Form,         ///< What the characters of the word suggest.
  ItemValue,    ///< That an item needs a value, if it seems to have none.
  SimilarType,  ///< A type with a similar name, or what the record above lacks.
};

/// Something that a file must not contain, and the sentence about it. In the sentence, `%` stands
/// for the word at fault and `@` for the record that contains the other place. In a note about the
/// grammar, `@` stands for the word at the other place.
struct Rule {
  Severity severity;
  std::string_view sentence;
  std::string_view note = {};  ///< About the other place, if there is one.
  Hint hint = Hint::None;
  bool doubtsRole = false;  ///< Though a warning: the word may be meant as something else.
};

namespace rules {

inline constexpr Severity error = Severity::Error;
inline constexpr Severity warning = Severity::Warning;

// Words that cannot be what their place means.
inline constexpr Rule notAName{error, R"("%" is not a name)", {}, Hint::Form};
inline constexpr Rule notAType{error, R"("%" is not a type)", {}, Hint::Form};
inline constexpr Rule notAValue{error, R"("%" is not a value)", {}, Hint::Form};
inline constexpr Rule notAPath{error, R"(% is not a path)", {}, Hint::Form};

// Words that the grammar does not want, or that give all after them another role.
inline constexpr Rule carriageReturns{error, "lines end with CR LF: end them with LF"};
inline constexpr Rule tabs{error, "there are tabs between words: use spaces"};
inline constexpr Rule notAStatement{error, R"("%" is not a statement)"};
inline constexpr Rule unknownStatement{
    error,
    R"("%" is not a statement: a statement begins with include, namespace, enum, message or service)"};
inline constexpr Rule membersOutside{
    error, R"("%" is not a statement: members stand in a message, as in "message M { x: int8 }")"};
inline constexpr Rule itemsOutside{
    error, R"("%" is not a statement: items stand in an enum, as in "enum E { A: 0 }")"};
inline constexpr Rule afterIncludePath{
    error, R"("%" is not a statement: an include has one path, in quotes and without spaces)"};
inline constexpr Rule afterNamespace{error, R"("%" is not a statement: a namespace is one word)"};
inline constexpr Rule bareKeyword{error, R"("%" is followed by nothing on its line)"};
inline constexpr Rule namespaceWithBraces{error,
                                          R"("%" is not a statement: a namespace has no braces)"};
inline constexpr Rule unopened{error, R"("%" is not a statement: there is no "{" for it)"};
inline constexpr Rule secondNamespace{error, "the namespace is set already: a file has only one",
                                      "the first one is here"};
inline constexpr Rule endOfFile{error, "% is missing at the end of the file",
                                "this @ is not complete"};
inline constexpr Rule missingOpening{error, R"(a "{" is missing after "%")"};
inline constexpr Rule afterName{error, R"("%" is not "{": only a name stands before it)"};
inline constexpr Rule colonsInName{error, R"("%" is not "{": a name is one word, without colons)"};
inline constexpr Rule partWithoutBraces{
    error, R"("%" is not "{": a request or response is members in braces)"};
inline constexpr Rule underlyingType{
    error, R"("%" is not "{": the underlying type of an enum cannot be chosen)"};
inline constexpr Rule baseOfMessage{error, R"("%" is not "{": messages have no base)"};
inline constexpr Rule baseOfService{error, R"("%" is not "{": services have no base)"};
inline constexpr Rule notAnEnd{error, R"("%" is not "}")"};
inline constexpr Rule afterResponse{
    error, R"("%" is not "}": a service has one request and one response, in this order)"};
inline constexpr Rule notABrace{error, R"("%" is not a brace)"};
inline constexpr Rule notAPart{error, R"("%" is neither "request" nor "response")"};
inline constexpr Rule notARequest{error, R"("%" is not "request")"};
inline constexpr Rule notAResponse{error, R"("%" is not "response")"};
inline constexpr Rule missingRequest{
    error,
    R"("%" is not "request": a service has both, as in "request { a: A } response { b: B }")"};
inline constexpr Rule missingResponse{
    error,
    R"("%" is not "response": a service has both, as in "request { a: A } response { b: B }")"};
inline constexpr Rule responseFirst{error,
                                    R"("%" is not "request": a service begins with its request)"};
inline constexpr Rule missingClosing{error, R"(a "}" is missing before this "%")"};
inline constexpr Rule missingEnd{
    error, R"(a "}" is missing before this "%": declarations cannot be nested)"};
inline constexpr Rule blockInMembers{
    error, R"("%" is not a member: a member is a name and one word for the type)"};
inline constexpr Rule blockAsType{error, R"("%" is not a type: declare a message for it)"};
inline constexpr Rule blockInEnum{
    error, R"("%" is not an item: an item is a name and one word for the value)"};
inline constexpr Rule missingName{error, R"(a name is missing before the "%")"};
inline constexpr Rule nameless{error, R"("%" has no name)"};
inline constexpr Rule missingType{error, R"("%" has no type)"};
inline constexpr Rule missingValue{error, R"("%" has no value: each item needs one, as in "A: 0")"};
inline constexpr Rule extraWordOfName{error, R"("%" is a word too many before the name)"};
inline constexpr Rule extraWordOfType{
    error, R"("%" is a word too many: a member is a name and one word for the type)"};
inline constexpr Rule extraWordOfValue{
    error, R"("%" is a word too many: an item is a name and one word for the value)"};
inline constexpr Rule severalNames{
    error, R"("%" is not a member: each has a name and a type, as in "x: int8 y: int8")"};
inline constexpr Rule foreignLine{error, R"("%" is of another language: delete the line)"};
inline constexpr Rule colonsInType{
    error, R"("%::" is not a type: write a dot between names, as in "a.B")"};
inline constexpr Rule colonsInValue{
    error, R"("%::" is not a value: write only the name of an item above)"};

// Names.
inline constexpr Rule keywordAsName{
    error, R"("%" is a keyword of C++ and cannot be a name)", {}, Hint::Form};
inline constexpr Rule laterKeyword{warning, R"("%" is a keyword since C++20)"};
inline constexpr Rule reservedName{
    warning, R"("%" is reserved for the compiler: names should not begin like this)"};
inline constexpr Rule builtinTypeAsName{
    warning,
    R"("%" is a built-in type: put the name first, as in "x: int8")",
    {},
    Hint::None,
    true};
inline constexpr Rule emptyNamespace{warning, R"("%" has an empty part)"};
inline constexpr Rule hidesStd{warning, R"("%" hides the namespace of the C++ library)"};
inline constexpr Rule hidesNeededStd{
    error, R"("%" hides the namespace of the C++ library, which a type here needs)"};
inline constexpr Rule globalNamespace{error, R"("%" is a namespace already: choose another name)"};
inline constexpr Rule nestedTypeAsService{
    error, R"(a service cannot be named "%": it contains a type of that name)"};
inline constexpr Rule declaredTwice{error, R"("%" is already declared)", "declared here"};
inline constexpr Rule isNamespace{error, R"("%" is already a namespace)", "declared here"};
inline constexpr Rule hiddenNamespace{
    error, R"("%" is also declared in zentho, where the functions of the header stand)",
    "declared here"};
inline constexpr Rule itemTwice{error, R"("%" is already an item of @)", "declared here"};
inline constexpr Rule memberTwice{error, R"("%" is already a member of @)", "declared here"};
inline constexpr Rule frameworkName{
    error, R"("%" is a name of the framework, which the header needs: choose another one)"};
inline constexpr Rule frameworkNameToo{
    warning, R"("%" is a name of the framework, which other headers need: choose another one)"};
inline constexpr Rule changesMeaning{
    warning, R"("%" is a type above: some compilers reject a member of that name)",
    "declared here"};
inline constexpr Rule changesMeaningBelow{
    warning, R"("%" is a type below: some compilers reject a member of that name)",
    "declared here"};
inline constexpr Rule changesMeaningOfUse{
    warning, R"("%" is a type above: some compilers reject a member of that name)", "used here"};

// Types.
inline constexpr Rule keywordAsType{error, R"("%" is a keyword of C++ and not a type)"};
inline constexpr Rule builtinInTemplate{
    error, R"("%" is not a type of C++, as template arguments must be)", {}, Hint::Form};
inline constexpr Rule uncheckedTemplate{
    warning, R"("%" is C++ and is copied unchecked)", {}, Hint::Form};
inline constexpr Rule laterType{warning, R"("%" is a type since C++20)"};
inline constexpr Rule notDeclared{error, R"("%" is not declared)", {}, Hint::SimilarType};
inline constexpr Rule declaredBelow{
    error, R"("%" is declared below: move it above the types that use it)", "declared here"};
inline constexpr Rule perhapsDeclaredBelow{
    warning, R"("%" is declared below: it is not the type that is meant here)", "declared here"};
inline constexpr Rule responseInRequest{
    error, R"("%" is declared below: a request cannot contain the response)"};
inline constexpr Rule serviceInMessage{
    error, R"("%" belongs to a service, which messages cannot use)", "declared here"};
inline constexpr Rule containsItself{
    error, R"("%" cannot contain itself: only a vector of it can be a member)"};
inline constexpr Rule hiddenByMember{error, R"("%" is a member here, which hides the type)",
                                     "declared here"};
inline constexpr Rule hiddenByItem{error, R"("%" is an item of @, which hides the type)",
                                   "declared here"};
inline constexpr Rule memberAsType{error, R"("%" is a member, not a type)", "declared here"};
inline constexpr Rule itemAsType{error, R"("%" is an item of @, not a type)", "declared here"};
inline constexpr Rule namespaceAsType{error, R"("%" is a namespace, not a type)"};
inline constexpr Rule hiddenLibrary{
    error, R"("%" needs the namespace of the C++ library, which is hidden here)", "declared here"};
inline constexpr Rule serviceAsType{
    warning,
    R"("%" is a service, for which there is no serialization: use its Request or Response)"};

// Values.
inline constexpr Rule tooLarge{warning, R"("%" has more than 64 bits)"};
inline constexpr Rule wideCharacter{warning,
                                    R"(%: some compilers reject this character: write its number)"};
inline constexpr Rule uncheckedValue{warning, R"("%" is C++ and is copied unchecked)"};
inline constexpr Rule typeAsItem{error, R"("%" is a type, not an item)"};
inline constexpr Rule notAnItem{warning, R"("%" is not an item above)", {}, Hint::ItemValue, true};

// Includes.
inline constexpr Rule unquotedPath{warning,
                                   R"(% is not in quotes: write "dir/file.idl", with the quotes)"};
inline constexpr Rule unterminatedPath{
    warning, R"(% has no closing quote: a path ends before a space, ":", "#" and "//")"};
inline constexpr Rule notFound{warning, "% is not found"};
inline constexpr Rule unreadable{warning, "% cannot be read"};
inline constexpr Rule cycle{warning, "% includes this file, too: one of them may not compile"};
inline constexpr Rule includesItself{warning, "% is this file itself"};
inline constexpr Rule misfit{error, R"("%" is declared in an included file already)",
                             "declared here"};
inline constexpr Rule sameHeader{warning, "the header of this file is that of %, too"};
inline constexpr Rule noExtension{warning, R"(% has no extension, such as ".idl")"};

}  // namespace rules
}  // namespace zentho::idlgen
