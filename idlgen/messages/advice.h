#pragma once

#include "findings/finding.h"
#include "messages/examination.h"
#include "sources/source_file.h"

namespace zentho::idlgen {

/// Returns what follows the sentence of a finding about one of the files, or nothing.
Advice AdviceFor(Examination& examination, const SourceFile& file, const Finding& finding);

}  // namespace zentho::idlgen
