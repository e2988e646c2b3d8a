#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zentho {

// The model of one IDL file. Lists are in the order of declaration, and strings are copied
// unchanged from the file. Records refer to each other by name only. Names may repeat or be
// undeclared.

/// One item of an enum. The value is text; it is not interpreted as a number.
struct EnumItem {
  std::string name;
  std::string value;
};

/// An enum, possibly without items.
struct Enum {
  std::string name;
  std::vector<EnumItem> items;
};

/// A member of a message, request or response. The type is that of the elements, without brackets.
/// If it is not a vector, `vectorDepth` and `isVector` are both 0.
struct CommonMember {
  std::int32_t vectorDepth = 0;  ///< The number of brackets around the type.
  std::string type;
  std::int32_t isVector = 0;  ///< 1 if the depth is above 0, otherwise 0.
  std::string name;
};

/// A message, possibly without members.
struct Message {
  std::string name;
  std::vector<CommonMember> members;
};

/// A service with the members of its request and of its response, possibly none.
struct Service {
  std::string name;
  std::vector<CommonMember> request;
  std::vector<CommonMember> response;
};

/// Everything that one IDL file declares. Empty for a file without statements.
struct Schema {
  std::vector<std::string> includes;  ///< The included files, without extension.

  // Whether the header needs <cstdint>, <string>, <vector> and OpenCV. Nothing sets the last two
  // yet: the framework's header includes <vector>, and there is no keyword for a matrix. The
  // generator supports all four.
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
