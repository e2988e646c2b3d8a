#include <cstdint>
#include <list>
#include <string>
#include <type_traits>
#include <vector>

#include "generator/generator.h"
#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"

// The fixed interface of the stages, see "Structure" in CONTRIBUTING.md: what the other tests would
// not notice, such as a string that is no longer taken by value.

namespace zentho {
namespace {

using Tokens = std::list<std::string>;
using TokenLines = std::vector<Tokens>;

template <typename Type>
constexpr bool is(Type /*unused*/) {
  return true;
}

static_assert(is<void (IDL::*)(std::string)>(&IDL::load));
static_assert(is<void (*)(std::string, Tokens&, char)>(IDL::split));
static_assert(is<void (*)(std::vector<std::string>, TokenLines&)>(IDL::splitBySpace));
static_assert(is<void (*)(TokenLines, TokenLines&)>(IDL::splitByColon));
static_assert(is<void (*)(std::string, Tokens&)>(IDL::splitByBrace));
static_assert(is<void (*)(TokenLines, TokenLines&)>(IDL::splitByBrace));
static_assert(is<void (*)(const TokenLines&)>(IDL::output));
static_assert(is<std::int32_t CommonMember::*>(&CommonMember::vectorDepth));
static_assert(is<std::int32_t CommonMember::*>(&CommonMember::isVector));
static_assert(is<std::vector<std::string> Schema::*>(&Schema::namespaces));
static_assert(is<void (Parser::*)(const IDL&, Schema&) const>(&Parser::parse));
static_assert(is<void (Generator::*)(std::string) const>(&Generator::generate));
static_assert(std::is_constructible_v<Generator, const Schema&>);
static_assert(!std::is_convertible_v<const Schema&, Generator>);

}  // namespace
}  // namespace zentho
