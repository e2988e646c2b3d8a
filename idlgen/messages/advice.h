#pragma once

#include <string>

#include "findings/finding.h"
#include "messages/examination.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

/// Returns what follows the sentence of a finding about one of the examined files, or nothing.
std::string AdviceFor(Examination& examination, const SourceFile& file, const Finding& finding);

}  // namespace zentho::idlgen
