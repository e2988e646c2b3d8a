#include "header/examination.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "check/out_of_step.h"
#include "diagnostics/known_types.h"
#include "diagnostics/similar.h"
#include "reader/places.h"

namespace zentho {
namespace {

const LeftOut nothingLeftOut;

/// Returns whether the file was not read whole, or has words that are not what they mean.
bool NeedsRecovery(const SourceFile& file) {
  return file.error.has_value() || WordsInStep(file.words, file.words.size()) < file.words.size() ||
         HasColonsInWord(file.text);
}

bool IsWarning(const Finding& finding) {
  return finding.rule->severity == Severity::Warning;
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
    if (NeedsRecovery(file)) recoverFrom(i);
    const Recovery* const recovery = recoveries[i].get();
    const bool hasFault = recovery != nullptr && recovery->hasFault();
    const bool isFound =
        std::all_of(file.includes.begin(), file.includes.end(),
                    [](const Include& include) { return include.kind == Include::Kind::Found; });
    const Words& read = recovery == nullptr ? file.words : recovery->file.words;
    const std::vector<std::size_t> paths = pathsRead(i);
    // After an error, there may be more includes than the parser has read.
    const auto includes = std::count(read.roles.begin(), read.roles.end(), Role::IncludePath);
    const bool isOpen = !isFound || paths.size() < static_cast<std::size_t>(includes);
    using Openness = FilesCheck::Openness;
    const Openness openness = isOpen     ? Openness::Open
                              : hasFault ? Openness::Faulty
                                         : Openness::Closed;
    std::vector<FilesCheck::Inclusion> inclusions;
    for (std::size_t k = 0; k < paths.size(); ++k) {
      if (file.includes[k].kind != Include::Kind::Found) continue;
      inclusions.push_back({paths[k], file.includes[k].file});
    }
    check.add(read, recovery == nullptr ? nothingLeftOut : recovery->leftOut, openness,
              std::move(inclusions));
  }
}

void Examination::recoverFrom(std::size_t file) {
  recoveries[file] =
      std::make_unique<Recovery>(files[file]->text, files[file]->words, files[file]->error);
  recoveries[file]->run(CheckAlone);
}

/// Returns the indexes of the paths of the first includes among the words that are read in the end.
std::vector<std::size_t> Examination::pathsRead(std::size_t file) const {
  const Recovery* const recovery = recoveries[file].get();
  const Words& words = recovery == nullptr ? files[file]->words : recovery->file.words;
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

Outcome Examination::examine(std::size_t file, Warnings warnings) {
  current = file;
  std::unique_ptr<Recovery>& recovery = recoveries[file];
  if (recovery == nullptr) {
    if (findings(file).empty()) return {true, {}};
    recovery = std::make_unique<Recovery>(files[file]->text, files[file]->words, std::nullopt);
  }
  recovery->run([&](const Words& words, const LeftOut& leftOut) {
    check.replace(file, words, leftOut);
    return findings(file);
  });
  std::vector<Finding>& found = recovery->findings;
  if (warnings == Warnings::Ignore) {
    found.erase(std::remove_if(found.begin(), found.end(), IsWarning), found.end());
  }
  const bool mayPass = warnings == Warnings::Fail
                           ? found.empty()
                           : std::all_of(found.begin(), found.end(), IsWarning);
  const bool succeeded = !files[file]->error.has_value() && !recovery->hasFault() && mayPass;
  return {succeeded, Report(files[file]->path, files[file]->text, *recovery, *this)};
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
  return found;
}

const std::string& Examination::path(std::size_t file) const {
  return files[file]->path;
}

const LocatedWords& Examination::words(std::size_t file) {
  std::unique_ptr<Recovery>& recovery = recoveries[file];
  if (recovery == nullptr) {
    recovery = std::make_unique<Recovery>(files[file]->text, files[file]->words, std::nullopt);
  }
  return recovery->file;
}

std::string Examination::typeAdvice(std::string_view type) {
  const KnownTypes types(check, current);
  const std::vector<std::size_t> others = types.filesThatDeclare(type);
  for (const std::size_t other : others) {            // Never if the file is alone.
    if (check.doesInclude(other, current)) continue;  // It would be a cycle.
    const std::string included = sources->includePath(current, other);
    if (!included.empty()) return "is \"" + included + "\" to be included?";
  }
  return others.empty() ? DidYouMean(types.mostSimilar(type)) : std::string();
}

}  // namespace zentho
