#include "generator/generator.h"

#include <zentho/util/file_path.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string_view>
#include <vector>

#include "io/line_writer.h"
#include "schema/builtin_types.h"

namespace zentho {
namespace {

std::string OutputPath(std::string_view idlPath) {
  const std::size_t dot = idlPath.rfind('.');
  if (dot == std::string_view::npos) throw std::exception();
  return std::string(idlPath.substr(0, dot)) + ".h";
}

/// Returns the text with all occurrences of the pattern, which must not be empty, replaced.
std::string replace(std::string text, std::string pattern, std::string replacement) {
  std::string result;
  std::size_t begin = 0;
  for (std::size_t match = text.find(pattern); match != std::string::npos;
       match = text.find(pattern, begin)) {
    result.append(text, begin, match - begin).append(replacement);
    begin = match + pattern.size();
  }
  return result.append(text, begin);
}

/// Returns the C++ type of a built-in keyword, and other names unchanged.
std::string CheckAndTransStdType(std::string type) {
  const idlgen::BuiltinType* const builtin = idlgen::FindBuiltinType(type);
  return builtin != nullptr ? std::string(builtin->cppType) : type;
}

std::string MemberType(const CommonMember& member) {
  std::string element = CheckAndTransStdType(replace(member.type, ".", "::"));
  if (member.isVector != 1) return element;
  std::string opening;
  std::string closing;
  for (std::int32_t level = 0; level < member.vectorDepth; ++level) {
    opening += "std::vector<";
    closing += '>';
  }
  return opening + element + closing;
}

/// Returns the prefix that qualifies the names of the header's structs, with the trailing "::".
std::string TypePrefix(const std::vector<std::string>& namespaces) {
  std::string prefix;
  for (const std::string& component : namespaces) {
    if (!prefix.empty()) prefix += "::";
    prefix += component;
  }
  return prefix + "::";
}

// The functions below are in the order of their output.

void writePrologue(LineWriter& header, const Schema& schema) {
  header.writeLine({"#pragma once"});
  header.writeLine({});
  header.writeLine({"#include <zentho/serialization/serialization.h>"});
  if (schema.hasIntType) header.writeLine({"#include <cstdint>"});
  if (schema.hasString) header.writeLine({"#include <string>"});
  if (schema.hasVector) header.writeLine({"#include <vector>"});
  if (schema.hasMat) header.writeLine({"#include <opencv2/core/mat.hpp>"});
  for (const std::string& include : schema.includes) {
    header.writeLine({"#include \"", include, ".h\""});
  }
  header.writeLine({});
}

void openNamespaces(LineWriter& header, const std::vector<std::string>& namespaces) {
  for (const std::string& component : namespaces) {
    header.writeLine({"namespace ", component, " {"});
  }
  header.writeLine({});  // Even if there is no namespace.
}

void writeEnum(LineWriter& header, const Enum& record) {
  header.writeLine({"enum ", record.name, " {"});
  for (const EnumItem& item : record.items) {
    header.writeLine({"    ", item.name, " = ", item.value, ","});
  }
  header.writeLine({"}; /* enum ", record.name, " */"});
  header.writeLine({});
}

void writeMembers(LineWriter& header, std::string_view indent,
                  const std::vector<CommonMember>& members) {
  for (const CommonMember& member : members) {
    header.writeLine({indent, MemberType(member), " ", member.name, ";"});
  }
}

void writeMessage(LineWriter& header, const Message& message) {
  header.writeLine({"struct ", message.name, " {"});
  writeMembers(header, "    ", message.members);
  header.writeLine({"}; /* message ", message.name, " */"});
  header.writeLine({});
}

void writeService(LineWriter& header, const Service& service) {
  header.writeLine({"struct ", service.name, " {"});
  header.writeLine({"    struct Request {"});
  writeMembers(header, "        ", service.request);
  header.writeLine({"    } request; /* struct Request */"});
  header.writeLine({"    struct Response {"});
  writeMembers(header, "        ", service.response);
  header.writeLine({"    } response; /* struct Response */"});
  header.writeLine({"}; /* service ", service.name, " */"});
  header.writeLine({});
}

void closeNamespaces(LineWriter& header, const std::vector<std::string>& namespaces) {
  for (auto component = namespaces.rbegin(); component != namespaces.rend(); ++component) {
    header.writeLine({"} /* namespace ", *component, " */"});
  }
}

void writeDeclarations(LineWriter& header, const Schema& schema) {
  openNamespaces(header, schema.namespaces);
  for (const Enum& record : schema.enums) writeEnum(header, record);
  for (const Message& message : schema.messages) writeMessage(header, message);
  for (const Service& service : schema.services) writeService(header, service);
  closeNamespaces(header, schema.namespaces);
}

// The functions in the header end with "};" although "}" would do: headers are compared byte for
// byte and have always had it.

void writeSerializer(LineWriter& header, std::string_view type, std::string_view title,
                     const std::vector<CommonMember>& members) {
  header.writeLine({"template<>"});
  header.writeLine({"inline void serialize(const ", type, "& data, BytesBuffer& buffer) {"});
  for (const CommonMember& member : members) {
    header.writeLine({"    serialize(data.", member.name, ", buffer);"});
  }
  header.writeLine({"}; /* serialization of ", title, " */"});
}

void writeDeserializer(LineWriter& header, std::string_view type, std::string_view title,
                       const std::vector<CommonMember>& members) {
  header.writeLine({"template<>"});
  header.writeLine({"inline void deserialize(BytesBuffer& buffer, ", type, "& data) {"});
  for (const CommonMember& member : members) {
    header.writeLine({"    deserialize(buffer, data.", member.name, ");"});
  }
  header.writeLine({"}; /* de-serialization of ", title, " */"});
}

void writeMessageSerialization(LineWriter& header, const std::string& typePrefix,
                               const Message& message) {
  const std::string type = typePrefix + message.name;
  writeSerializer(header, type, type, message.members);
  header.writeLine({});
  writeDeserializer(header, type, type, message.members);
  header.writeLine({});
}

void writeServiceSerialization(LineWriter& header, const std::string& typePrefix,
                               const Service& service) {
  const std::string type = typePrefix + service.name;
  writeSerializer(header, type + "::Request", type + " Request", service.request);
  header.writeLine({});
  writeSerializer(header, type + "::Response", type + " Response", service.response);
  header.writeLine({});
  writeDeserializer(header, type + "::Request", type + " Request", service.request);
  // No empty line here, unlike between all other functions: headers are compared byte for byte and
  // have never had one.
  writeDeserializer(header, type + "::Response", type + " Response", service.response);
  header.writeLine({});
}

void writeSerialization(LineWriter& header, const Schema& schema) {
  header.writeLine({});
  header.writeLine({"namespace zentho {"});
  const std::string typePrefix = TypePrefix(schema.namespaces);
  for (const Message& message : schema.messages) {
    writeMessageSerialization(header, typePrefix, message);
  }
  for (const Service& service : schema.services) {
    writeServiceSerialization(header, typePrefix, service);
  }
  header.writeLine({"} /* namespace zentho */"});
  header.writeLine({});
}

}  // namespace

void Generator::generate(std::string idlPath) const {
  const std::string path = OutputPath(idlPath);
  util::FilePath::createFile(path.c_str());
  idlgen::FileLineWriter header(path);
  write(header);
}

void Generator::write(LineWriter& header) const {
  writePrologue(header, *schema);
  writeDeclarations(header, *schema);
  writeSerialization(header, *schema);
}

}  // namespace zentho
