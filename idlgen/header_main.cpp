#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <new>
#include <string_view>

#include "header/generate_header.h"
#include "io/file.h"

namespace zentho {
namespace {

constexpr std::string_view usage = "usage: idlgen-header [--if-changed] IDL HEADER\n";
constexpr std::string_view help =
    "usage: idlgen-header [--if-changed] IDL HEADER\n"
    "       idlgen-header --help | --version\n"
    "\n"
    "Generates the C++ header HEADER of the file IDL, whole or, after an error, not at all.\n"
    "\n"
    "  --if-changed  leave HEADER untouched if it already has the text\n"
    "  --help        print this help\n"
    "  --version     print the version\n";
constexpr std::string_view version = "idlgen-header " IDLGEN_VERSION "\n";

int print(std::string_view text) {
  return writeAll(STDOUT_FILENO, text) ? EXIT_FAILURE : EXIT_SUCCESS;
}

/// Writes to standard error, where there is no way to report a failure.
void printError(std::string_view text) {
  (void)writeAll(STDERR_FILENO, text);
}

/// Executes the command line. Returns the exit status.
int run(int argc, char** argv) {
  const std::string_view option = argc > 1 ? argv[1] : "";
  const bool isLone = option == "--help" || option == "--version";
  if (isLone && argc == 2) return print(option == "--help" ? help : version);
  const bool ifChanged = option == "--if-changed";
  if (isLone || argc != (ifChanged ? 4 : 3)) {
    printError(usage);
    return 2;
  }
  HeaderRequest request;
  request.idl = argv[argc - 2];
  request.header = argv[argc - 1];
  request.ifChanged = ifChanged;
  const Outcome result = generateHeader(request);
  printError(result.messages);
  return result.succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace zentho

int main(int argc, char** argv) {
  // Ignored so that a closed pipe or a file size limit does not kill the program: a write fails.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    return zentho::run(argc, argv);
  } catch (const std::bad_alloc&) {
    zentho::printError("idlgen-header: Cannot allocate memory\n");
    return EXIT_FAILURE;
  }
}
