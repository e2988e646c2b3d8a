#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zentho {

// The model of one IDL file: plain data, every list in the order of declaration, every string as
// the file has it. Records refer to one another by name only, and no name has to be unique or
// known.

/// One item of an enum. The value is text and never read as a number.
struct EnumItem {
  std::string name;
  std::string value;
};

/// An enum; without items it is an empty one.
struct Enum {
  std::string name;
  std::vector<EnumItem> items;
};

/// A field of some message, request or response. The type is that of the element, without the
/// brackets; for a plain field, `vectorDepth` and `isVector` are both 0.
struct CommonMember {
  std::int32_t vectorDepth = 0;  ///< How many levels of brackets the declared type had.
  std::string type;
  std::int32_t isVector = 0;  ///< 1 if the depth is above 0, else 0.
  std::string name;
};

/// A message; it may have no members.
struct Message {
  std::string name;
  std::vector<CommonMember> members;
};

/// A service, with the members of its request and of its response; either may have none.
struct Service {
  std::string name;
  std::vector<CommonMember> request;
  std::vector<CommonMember> response;
};

/// All that one IDL file declares. A new one is empty, and so is that of a file without statements.
struct Schema {
  std::vector<std::string> includes;  ///< Names of the included files, without their extension.

  // Which headers the generated one needs. Nothing sets the last two so far: the framework's header
  // brings the standard vector, and no keyword stands for a matrix. The generator heeds all four.
  bool hasIntType = false;
  bool hasString = false;
  bool hasVector = false;
  bool hasMat = false;

  std::vector<std::string> namespaces;  ///< Outermost first; empty without a namespace statement.
  std::vector<Enum> enums;
  std::vector<Message> messages;
  std::vector<Service> services;
  bool namespaceSet = false;  ///< Whether the file has had its namespace statement.

  /// Prints the whole model, filled or partly filled, line by line. A member's line tells whether
  /// it is a vector, but not how deep; the flags are left out.
  void output() const;
};

}  // namespace zentho
