#include "report.h"

std::string Describe(const robot::status::Report& report) {
  return "level " + std::to_string(report.level) + ": " + report.text;
}
