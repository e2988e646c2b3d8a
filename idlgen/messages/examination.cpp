#include "messages/examination.h"

#include "check/check_file.h"
#include "messages/known_types.h"
#include "names/view.h"
#include "recovery/fixes.h"
#include "words/printable.h"
#include "words/similar.h"

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

Examined Examination::examine(SourceFile& file) {
  auto known = recoveries.find(&file);
  if (known == recoveries.end()) {
    const bool isRight = CheckFile(*declarations, declarations->fileOf(file)).empty();
    if (isRight) return {};
    known = recoveries.try_emplace(&file, file).first;
  }
  return known->second.run(*declarations);
}

std::string Examination::typeAdvice(const SourceFile& file, std::string_view type) {
  const CheckedFile& user = declarations->fileOf(file);
  const KnownTypes known(*declarations, user);
  const std::vector<const CheckedFile*> others = known.filesThatDeclare(type);
  for (const CheckedFile* const other : others) {          // Never if the file is alone.
    if (View(*declarations, *other).has(&user)) continue;  // It would be a cycle.
    const std::string included = sources->includePath(file, *other->source);
    if (!included.empty()) return "is " + Quoted(included) + " to be included?";
  }
  return others.empty() ? DidYouMean(known.mostSimilar(type)) : std::string();
}

}  // namespace zentho::idlgen
