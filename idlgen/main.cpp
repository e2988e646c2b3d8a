#include <csignal>
#include <cstdlib>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "generator/generator.h"
#include "io/line_writer.h"
#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"

namespace zentho::idlgen {
namespace {

/// Generates the header of one IDL file. Throws std::exception on failure.
void processFile(const std::string& path, const Parser& parser, bool verbose) {
  IDL idl;
  idl.load(path);
  if (verbose) idl.outputFinal();

  Schema schema;
  try {
    parser.parse(idl, schema);
  } catch (const std::exception&) {
    if (verbose) schema.output();  // The statements before the error.
    throw;
  }
  if (verbose) schema.output();

  Generator(schema).generate(path);
}

/// Executes the command line. Returns the exit status.
int run(int argc, char** argv) {
  if (argc < 2) {
    printLine({"no param found."});
    return 255;
  }
  const std::string_view mode = argv[1];
  if (mode == "-f" || mode == "-fv") {
    const std::vector<std::string> paths(argv + 2, argv + argc);
    const Parser parser;
    for (const std::string& path : paths) processFile(path, parser, mode == "-fv");
    return 0;
  }
  if (mode == "-d") return 0;  // Accepted, and does nothing.
  printLine({"mode not supported"});
  return 255;
}

}  // namespace
}  // namespace zentho::idlgen

int main(int argc, char** argv) {
  // Ignored so that a closed pipe or a file size limit does not kill the program. Output that
  // cannot be written is lost.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    return zentho::idlgen::run(argc, argv);
  } catch (...) {
    return EXIT_FAILURE;  // Errors in files have been printed; others are silent.
  }
}
