#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>

#include "io/file.h"
#include "messages/outcome.h"
#include "program/check_files.h"
#include "program/command_line.h"
#include "program/generate_header.h"

namespace zentho::idlgen {
namespace {

constexpr std::string_view usage =
    "usage: idlgen-header [-w | --werror] [--if-changed] IDL HEADER\n"
    "       idlgen-header --check [-w | --werror] [-I DIR]... [--stamp FILE [--depfile FILE]] "
    "IDL...\n";
constexpr std::string_view help =
    "       idlgen-header --help | --version\n"
    "\n"
    "Generates the C++ header HEADER of the file IDL, whole or, after an error, not at all. With\n"
    "--check, checks IDL files and generates nothing; @FILE then stands for the arguments in "
    "FILE,\n"
    "one a line.\n"
    "\n"
    "  --if-changed    leave HEADER untouched if it already has the text\n"
    "  --check         only check the files\n"
    "  -I DIR          search DIR for included files, in the order of these options\n"
    "  --stamp FILE    write FILE, empty, if there was no error\n"
    "  --depfile FILE  write which files were read to FILE, as make's dependencies of the stamp\n"
    "  -w              do not show warnings\n"
    "  --werror        fail after a warning, too\n"
    "  --help          print this help\n"
    "  --version       print the version\n";
constexpr std::string_view version = "idlgen-header " IDLGEN_VERSION "\n";

int print(std::string_view text) {
  return writeAll(STDOUT_FILENO, text) ? EXIT_FAILURE : EXIT_SUCCESS;
}

/// Writes to standard error, where there is no way to report a failure.
void printError(std::string_view text) {
  (void)writeAll(STDERR_FILENO, text);
}

/// Prints what a run has to say. Returns the exit status.
int finish(const Outcome& result) {
  printError(result.messages);
  return result.succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Executes the command line. Returns the exit status.
int run(const CommandLine& line) {
  switch (line.kind) {
    case CommandLine::Kind::Wrong:
      printError("idlgen-header: " + line.error + "\n" + std::string(usage));
      return 2;
    case CommandLine::Kind::Help:
      return print(std::string(usage).append(help));
    case CommandLine::Kind::Version:
      return print(version);
    case CommandLine::Kind::Header:
      return finish(generateHeader(line.header));
    case CommandLine::Kind::Check:
      return finish(checkFiles(line.check));
  }
  return EXIT_FAILURE;
}

}  // namespace
}  // namespace zentho::idlgen

int main(int argc, char** argv) {
  // Ignored so that a closed pipe or a file size limit does not kill the program: a write fails.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    return zentho::idlgen::run(
        zentho::idlgen::ParseCommandLine({argv + std::min(argc, 1), argv + argc}));
  } catch (const std::bad_alloc&) {
    zentho::idlgen::printError(zentho::idlgen::noMemory);
    return EXIT_FAILURE;
  }
}
