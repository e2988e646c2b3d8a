#include "header/examine.h"

#include <utility>

#include "header/examination.h"
#include "header/report.h"
#include "sources/source_file.h"

namespace zentho {

Outcome examine(const std::string& path, const std::string& text, Schema& schema,
                Warnings warnings) {
  SourceFile file = ParseSource(path, text);
  Examination examination(file);
  Outcome result = reportOn(examination, 0, warnings);
  schema = std::move(file.schema);
  return result;
}

}  // namespace zentho
