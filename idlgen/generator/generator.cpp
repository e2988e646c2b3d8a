#include "generator/generator.h"

#include <zentho/util/file_path.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <string_view>
#include <vector>

#include "io/file.h"

namespace zentho {
namespace {

std::string OutputPath(std::string_view idlPath) {
  const std::size_t dot = idlPath.rfind('.');
  if (dot == std::string_view::npos) throw std::exception();
  return std::string(idlPath.substr(0, dot)) + ".h";
}

/// The text with every occurrence of the pattern, a single character, replaced.
std::string replace(std::string_view text, std::string_view pattern, std::string_view replacement) {
  std::string result;
  std::size_t begin = 0;
  for (std::size_t match = text.find(pattern); match != std::string_view::npos;
       match = text.find(pattern, begin)) {
    result.append(text, begin, match - begin).append(replacement);
    begin = match + 1;
  }
  return result.append(text, begin);
}

/// The C++ type of a built-in keyword; any other name stays as it is.
std::string CheckAndTransStdType(std::string type) {
  if (type == "uint8" || type == "uint16" || type == "uint32" || type == "uint64" ||
      type == "int8" || type == "int16" || type == "int32" || type == "int64") {
    return "std::" + type + "_t";
  }
  if (type == "float32") return "float";
  if (type == "float64") return "double";
  if (type == "string") return "std::string";
  return type;
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

/// What precedes the name of a struct where it is used outside the user's namespace.
std::string TypePrefix(const std::vector<std::string>& namespaces) {
  std::string prefix;
  for (const std::string& component : namespaces) {
    if (!prefix.empty()) prefix += "::";
    prefix += component;
  }
  return prefix + "::";
}

// The writers stand in the order of the header.

void writePrologue(std::FILE* header, const Schema& schema) {
  writeLine(header, {"#pragma once"});
  writeLine(header, {});
  writeLine(header, {"#include <zentho/serialization/serialization.h>"});
  if (schema.hasIntType) writeLine(header, {"#include <cstdint>"});
  if (schema.hasString) writeLine(header, {"#include <string>"});
  if (schema.hasVector) writeLine(header, {"#include <vector>"});
  if (schema.hasMat) writeLine(header, {"#include <opencv2/core/mat.hpp>"});
  for (const std::string& include : schema.includes) {
    writeLine(header, {"#include \"", include, ".h\""});
  }
  writeLine(header, {});
}

void openNamespaces(std::FILE* header, const std::vector<std::string>& namespaces) {
  for (const std::string& component : namespaces) {
    writeLine(header, {"namespace ", component, " {"});
  }
  writeLine(header, {});  // Without a namespace too.
}

void writeEnum(std::FILE* header, const Enum& record) {
  writeLine(header, {"enum ", record.name, " {"});
  for (const EnumItem& item : record.items) {
    writeLine(header, {"    ", item.name, " = ", item.value, ","});
  }
  writeLine(header, {"}; /* enum ", record.name, " */"});
  writeLine(header, {});
}

void writeMembers(std::FILE* header, std::string_view indent,
                  const std::vector<CommonMember>& members) {
  for (const CommonMember& member : members) {
    writeLine(header, {indent, MemberType(member), " ", member.name, ";"});
  }
}

void writeMessage(std::FILE* header, const Message& message) {
  writeLine(header, {"struct ", message.name, " {"});
  writeMembers(header, "    ", message.members);
  writeLine(header, {"}; /* message ", message.name, " */"});
  writeLine(header, {});
}

void writeService(std::FILE* header, const Service& service) {
  writeLine(header, {"struct ", service.name, " {"});
  writeLine(header, {"    struct Request {"});
  writeMembers(header, "        ", service.request);
  writeLine(header, {"    } request; /* struct Request */"});
  writeLine(header, {"    struct Response {"});
  writeMembers(header, "        ", service.response);
  writeLine(header, {"    } response; /* struct Response */"});
  writeLine(header, {"}; /* service ", service.name, " */"});
  writeLine(header, {});
}

void closeNamespaces(std::FILE* header, const std::vector<std::string>& namespaces) {
  for (auto component = namespaces.rbegin(); component != namespaces.rend(); ++component) {
    writeLine(header, {"} /* namespace ", *component, " */"});
  }
}

void writeDeclarations(std::FILE* header, const Schema& schema) {
  openNamespaces(header, schema.namespaces);
  for (const Enum& record : schema.enums) writeEnum(header, record);
  for (const Message& message : schema.messages) writeMessage(header, message);
  for (const Service& service : schema.services) writeService(header, service);
  closeNamespaces(header, schema.namespaces);
}

// The bodies below close with "};" although they are functions: headers are compared byte for byte,
// and this is how they have always ended.

void writeSerializer(std::FILE* header, std::string_view type, std::string_view title,
                     const std::vector<CommonMember>& members) {
  writeLine(header, {"template<>"});
  writeLine(header, {"inline void serialize(const ", type, "& data, BytesBuffer& buffer) {"});
  for (const CommonMember& member : members) {
    writeLine(header, {"    serialize(data.", member.name, ", buffer);"});
  }
  writeLine(header, {"}; /* serialization of ", title, " */"});
}

void writeDeserializer(std::FILE* header, std::string_view type, std::string_view title,
                       const std::vector<CommonMember>& members) {
  writeLine(header, {"template<>"});
  writeLine(header, {"inline void deserialize(BytesBuffer& buffer, ", type, "& data) {"});
  for (const CommonMember& member : members) {
    writeLine(header, {"    deserialize(buffer, data.", member.name, ");"});
  }
  writeLine(header, {"}; /* de-serialization of ", title, " */"});
}

void writeMessageSerialization(std::FILE* header, const std::string& typePrefix,
                               const Message& message) {
  const std::string type = typePrefix + message.name;
  writeSerializer(header, type, type, message.members);
  writeLine(header, {});
  writeDeserializer(header, type, type, message.members);
  writeLine(header, {});
}

void writeServiceSerialization(std::FILE* header, const std::string& typePrefix,
                               const Service& service) {
  const std::string type = typePrefix + service.name;
  writeSerializer(header, type + "::Request", type + " Request", service.request);
  writeLine(header, {});
  writeSerializer(header, type + "::Response", type + " Response", service.response);
  writeLine(header, {});
  writeDeserializer(header, type + "::Request", type + " Request", service.request);
  // No empty line here, alone among all neighbours: it has never been part of the header's text.
  writeDeserializer(header, type + "::Response", type + " Response", service.response);
  writeLine(header, {});
}

void writeSerialization(std::FILE* header, const Schema& schema) {
  writeLine(header, {});
  writeLine(header, {"namespace zentho {"});
  const std::string typePrefix = TypePrefix(schema.namespaces);
  for (const Message& message : schema.messages) {
    writeMessageSerialization(header, typePrefix, message);
  }
  for (const Service& service : schema.services) {
    writeServiceSerialization(header, typePrefix, service);
  }
  writeLine(header, {"} /* namespace zentho */"});
  writeLine(header, {});
}

}  // namespace

void Generator::generate(std::string idlPath) const {
  const std::string path = OutputPath(idlPath);
  util::FilePath::createFile(path.c_str());
  const File header = createUnbuffered(path);
  writePrologue(header.get(), *schema);
  writeDeclarations(header.get(), *schema);
  writeSerialization(header.get(), *schema);
}

}  // namespace zentho
