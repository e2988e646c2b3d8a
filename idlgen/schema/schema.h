#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zentho {

// The model of one IDL file. Lists are in the order of declaration. Names and enum values are
// copied unchanged. Records refer to each other by name only. Names may repeat or be undeclared.
//
// A fixed interface, see CONTRIBUTING.md.

/// One item of an enum. The value is text; it is not interpreted as a number.
struct EnumItem {
  std::string name;
  std::string value;
};

struct Enum {
  std::string name;
  std::vector<EnumItem> items;
};

/// A member of a message, request or response. The type is that of the elements, without brackets.
struct CommonMember {
  std::int32_t vectorDepth = 0;  ///< The number of brackets around the type; 0 if no vector.
  std::string type;
  std::int32_t isVector = 0;  ///< 1 if the depth is above 0, otherwise 0.
  std::string name;
};

struct Message {
  std::string name;
  std::vector<CommonMember> members;
};

struct Service {
  std::string name;
  std::vector<CommonMember> request;
  std::vector<CommonMember> response;
};

/// Everything that one IDL file declares. Empty for a file without statements.
struct Schema {
  std::vector<std::string> includes;  ///< The included files, without extension.

  // Whether a member, or an element of a vector, is an integer, a string, a vector or a matrix. The
  // generator turns these into includes. The parser sets the first two only: the framework's header
  // includes <vector>, and there is no keyword for a matrix.
  bool hasIntType = false;
  bool hasString = false;
  bool hasVector = false;
  bool hasMat = false;

  std::vector<std::string> namespaces;  ///< Outermost first. Empty if there is no namespace.
  std::vector<Enum> enums;
  std::vector<Message> messages;
  std::vector<Service> services;
  bool namespaceSet = false;  ///< Whether there has been a namespace statement.

  /// Prints the model, complete or not. Shows whether a member is a vector, but not the depth.
  /// Omits the flags.
  void output() const;
};

}  // namespace zentho
