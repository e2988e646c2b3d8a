#include "messages/examination.h"

#include <algorithm>
#include <utility>

#include "findings/places.h"
#include "messages/known_types.h"
#include "recovery/out_of_step.h"
#include "words/printable.h"
#include "words/similar.h"

namespace zentho::idlgen {
namespace {

const LeftOut nothingLeftOut;

/// Returns whether the file was not read whole, or has words that are not what they mean.
bool NeedsRecovery(const SourceFile& file) {
  return file.error.has_value() || WordsInStep(file.words, file.words.size()) < file.words.size() ||
         HasColonsInWord(file.text);
}

}  // namespace

Examination::Examination(Sources& readSources) : sources(&readSources) {
  for (const SourceFile& file : readSources.files()) files.push_back(&file);
  addFiles();
}

Examination::Examination(const SourceFile& file) : files({&file}) {
  addFiles();
}

void Examination::addFiles() {
  recoveries.resize(files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    const SourceFile& file = *files[i];
    if (NeedsRecovery(file)) recoveryOf(i).run(CheckAlone);
    const Recovery* const recovery = recoveries[i].get();
    const LeftOut& leftOut = recovery == nullptr ? nothingLeftOut : recovery->result().leftOut;
    check.add(wordsRead(i), leftOut, opennessOf(i), inclusionsOf(i));
  }
}

FilesCheck::Openness Examination::opennessOf(std::size_t file) const {
  const std::vector<Include>& includes = files[file]->includes;
  const bool isFound = std::all_of(includes.begin(), includes.end(), [](const Include& include) {
    return include.kind == Include::Kind::Found;
  });
  const std::vector<Role>& roles = wordsRead(file).roles;
  // After an error, there may be more includes than the parser has read.
  const auto count = std::count(roles.begin(), roles.end(), Role::IncludePath);
  if (!isFound || pathsRead(file).size() < static_cast<std::size_t>(count)) {
    return FilesCheck::Openness::Open;
  }
  const Recovery* const recovery = recoveries[file].get();
  return recovery != nullptr && recovery->hasFault() ? FilesCheck::Openness::Faulty
                                                     : FilesCheck::Openness::Closed;
}

/// Returns the include statements that lead to files, among the words that are read.
std::vector<Inclusion> Examination::inclusionsOf(std::size_t file) const {
  const std::vector<std::size_t> paths = pathsRead(file);
  std::vector<Inclusion> inclusions;
  for (std::size_t k = 0; k < paths.size(); ++k) {
    const Include& include = files[file]->includes[k];
    if (include.kind == Include::Kind::Found) inclusions.push_back({paths[k], include.file});
  }
  return inclusions;
}

/// Returns the recovery of a file, which may be a new one.
Recovery& Examination::recoveryOf(std::size_t file) {
  std::unique_ptr<Recovery>& recovery = recoveries[file];
  if (recovery == nullptr) {
    const SourceFile& source = *files[file];
    recovery = std::make_unique<Recovery>(source.text, source.words, source.error);
  }
  return *recovery;
}

/// Returns the words of a file that are read in the end.
const Words& Examination::wordsRead(std::size_t file) const {
  const Recovery* const recovery = recoveries[file].get();
  return recovery == nullptr ? files[file]->words : recovery->result().file.words;
}

/// Returns the indexes of the paths of the first includes among the words that are read in the end.
std::vector<std::size_t> Examination::pathsRead(std::size_t file) const {
  const Words& words = wordsRead(file);
  std::vector<std::size_t> paths;
  std::size_t word = 0;
  for (const Include& include : files[file]->includes) {
    const std::string_view text = files[file]->words.texts[include.word];
    const auto isPath = [&](std::size_t i) {
      return words.roles[i] == Role::IncludePath && words.texts[i] == text;
    };
    while (word < words.size() && !isPath(word)) ++word;
    if (word == words.size()) break;
    paths.push_back(word++);
  }
  return paths;
}

const Recovered* Examination::examine(std::size_t file) {
  if (recoveries[file] == nullptr && findings(file).empty()) return nullptr;
  Recovery& recovery = recoveryOf(file);
  recovery.run([&](const Words& words, const LeftOut& leftOut) {
    if (recovery.hasFault()) {
      check.replace(file, words, leftOut, opennessOf(file), inclusionsOf(file));
    }
    return findings(file);
  });
  return &recovery.result();
}

/// Returns the findings about a file, those about paths that lead nowhere included.
std::vector<Finding> Examination::findings(std::size_t file) {
  std::vector<Finding> found = check.findings(file);
  const std::vector<std::size_t> paths = pathsRead(file);
  for (std::size_t k = 0; k < paths.size(); ++k) {
    const Include& include = files[file]->includes[k];
    if (include.correction.empty()) continue;
    Finding finding{&rules::similarPath, paths[k], files[file]->words.texts[include.word]};
    finding.advice = DidYouMean(include.correction);
    found.push_back(std::move(finding));
  }
  sort(found);
  return found;
}

const LocatedWords& Examination::locatedWords(std::size_t file) {
  return recoveryOf(file).result().file;
}

std::string Examination::typeAdvice(std::size_t file, std::string_view type) {
  const KnownTypes types(check, file);
  const std::vector<std::size_t> others = types.filesThatDeclare(type);
  for (const std::size_t other : others) {         // Never if the file is alone.
    if (check.doesInclude(other, file)) continue;  // It would be a cycle.
    const std::string included = sources->includePath(file, other);
    if (!included.empty()) return "is " + Quoted(included) + " to be included?";
  }
  return others.empty() ? DidYouMean(types.mostSimilar(type)) : std::string();
}

}  // namespace zentho::idlgen
