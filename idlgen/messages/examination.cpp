#include "messages/examination.h"

#include "check/check.h"
#include "recovery/fixes.h"

namespace zentho::idlgen {

Examination::Examination(Sources& readSources) : sources(&readSources) {
  std::vector<SourceFile*> files;
  for (SourceFile& file : readSources.files()) files.push_back(&file);
  repairAll(files);
}

Examination::Examination(SourceFile& file) {
  repairAll({&file});
}

/// Repairs each file as if it were alone, so that the others find what it declares.
void Examination::repairAll(const std::vector<SourceFile*>& files) {
  for (SourceFile* const file : files) {
    if (!NeedsFix(*file)) continue;
    Declarations alone({file});
    recoveries.try_emplace(file, *file).first->second.run(alone);
  }
  declarations.emplace(files);
}

RecoveryResult Examination::examine(SourceFile& file) {
  auto known = recoveries.find(&file);
  if (known == recoveries.end()) {
    const bool isRight = FindingsIn(*declarations, declarations->fileOf(file)).empty();
    if (isRight) return {};
    known = recoveries.try_emplace(&file, file).first;
  }
  return known->second.run(*declarations);
}

}  // namespace zentho::idlgen
