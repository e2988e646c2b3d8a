#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <string_view>

#include "io/file.h"
#include "step/header_step.h"

namespace zentho {
namespace {

void printError(std::string_view lines) {
  Succeeds([&] { return writeAll(STDERR_FILENO, lines); });
}

/// Executes the command line. Returns the exit status.
int run(int argc, char** argv) {
  const bool ifChanged = argc == 4 && std::string_view(argv[1]) == "--if-changed";
  if (argc != 3 && !ifChanged) {
    printError("usage: idlgen-header [--if-changed] IDL HEADER\n");
    return 2;
  }
  try {
    generateHeader(argv[argc - 2], argv[argc - 1], ifChanged);
    return EXIT_SUCCESS;
  } catch (const StepError& failure) {
    printError(failure.message);
  } catch (const std::exception&) {  // std::bad_alloc
    printError("idlgen-header: Cannot allocate memory\n");
  }
  return EXIT_FAILURE;
}

}  // namespace
}  // namespace zentho

int main(int argc, char** argv) {
  // Ignored so that a closed pipe or a file size limit does not kill the program: a write fails.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  return zentho::run(argc, argv);
}
