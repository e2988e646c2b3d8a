#include "program/generate_header.h"

#include <new>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "generator/generator.h"
#include "io/file.h"
#include "io/line_writer.h"
#include "io/replace_file.h"
#include "messages/report.h"
#include "program/output_file.h"
#include "schema/schema.h"
#include "sources/source_tree.h"

namespace zentho::idlgen {
namespace {

/// Returns whether the file at `path` has this text. Errors count as no.
bool HasText(const std::string& path, const std::string& text) {
  std::string old;
  return !readFile(path, old, text.size() + 1) && old == text;
}

Outcome generate(const HeaderRequest& request) {
  std::string source;
  if (const std::error_code error = readFile(request.idl, source)) {
    return {false, ErrorLine(request.idl, error.message())};
  }
  Schema schema;
  Outcome result = reportAlone(request.idl, std::move(source), schema, request.warnings);
  if (!result.succeeded) return result;

  StringLineWriter header;
  Generator(schema).write(header);
  if (request.ifChanged && HasText(request.header, header.text)) return result;
  if (const std::error_code error = replaceFile(request.header, header.text)) {
    return {false, result.messages + ErrorLine(request.header, error.message())};
  }
  return result;
}

}  // namespace

Outcome generateHeader(const HeaderRequest& request) {
  constexpr std::string_view beginning = "#pragma once";
  const OutputFile header = {
      request.header,
      [&](std::string_view text) { return text.substr(0, beginning.size()) == beginning; },
      R"(does not begin with "#pragma once")",
      [&](FileId id) { return DiskTree().look(request.idl).id == id; }, "is the IDL file"};
  if (const std::optional<std::string> reason = Refusal(header)) {
    return {false, ErrorLine(request.header, *reason)};
  }
  Outcome result{};
  try {
    result = generate(request);
  } catch (const std::bad_alloc&) {
    result = {false, noMemory};
  }
  if (!result.succeeded) removeOutput(request.header, result.messages);
  return result;
}

}  // namespace zentho::idlgen
