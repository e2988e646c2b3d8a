#include "messages/outcome.h"

#include "words/printable.h"

namespace zentho::idlgen {

std::string ErrorLine(const std::string& path, const std::string& reason) {
  return "idlgen-header: " + Printable(path) + ": " + reason + "\n";
}

}  // namespace zentho::idlgen
