#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "program/check_files.h"
#include "program/generate_header.h"

namespace zentho::idlgen {

/// What the command line of `idlgen-header` asks for.
struct CommandLine {
  enum class Kind : std::uint8_t { Wrong, Help, Version, Header, Check };

  Kind kind = Kind::Wrong;
  std::string error = {};  ///< What is wrong.
  HeaderRequest header = {};
  CheckRequest check = {};
};

/// Reads the command line, without the name of the program, and the argument files that it names.
CommandLine ParseCommandLine(std::vector<std::string> arguments);

}  // namespace zentho::idlgen
