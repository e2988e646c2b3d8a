#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_set>
#include <vector>

#include "findings/finding.h"
#include "names/declarations.h"
#include "names/lookup.h"
#include "names/sight.h"
#include "schema/words.h"

namespace zentho::idlgen {

/// Checks what the words of files mean: whether each can be what its place means, and whether C++
/// compilers accept the headers, as far as the files show that are checked together.
class FilesCheck {
 public:
  /// Whether names may come from what has not been read.
  enum class Openness : std::uint8_t {
    Closed,
    Faulty,  ///< To other files: words of this one could not be read.
    Open     ///< Also to the file itself: it includes what is no file.
  };

  FilesCheck() = default;
  FilesCheck(const FilesCheck&) = delete;
  FilesCheck& operator=(const FilesCheck&) = delete;

  /// Adds a file, whose words must have been parsed. Files have the indexes 0, 1, ... in the order
  /// of the calls.
  void add(const Words& words, const LeftOut& leftOut, Openness openness,
           std::vector<Inclusion> inclusions = {});

  /// Replaces the words of a file, and where its include statements stand in them.
  void replace(std::size_t file, const Words& words, const LeftOut& leftOut, Openness openness,
               std::vector<Inclusion> inclusions);

  /// Returns the findings about a file, in the order of its words.
  std::vector<Finding> findings(std::size_t file);

  [[nodiscard]] const Declarations& allDeclarations() const { return declarations; }

  /// Returns whether a file includes another one, also indirectly.
  [[nodiscard]] bool doesInclude(std::size_t includer, std::size_t included) const;

  /// Returns what looks up names in the header of a file, and what the file sees. Both may be used
  /// until the next call.
  [[nodiscard]] Lookup lookupFrom(std::size_t file);
  [[nodiscard]] const Sight& lastSight() const { return sight; }

 private:
  [[nodiscard]] bool seesOpenFile(std::size_t file) const;
  void appendIncludeFindings(std::size_t file, std::vector<Finding>& findings);
  void appendMisfits(std::size_t file, std::vector<Finding>& findings);
  [[nodiscard]] std::unordered_set<std::size_t> closure(std::size_t file) const;

  Declarations declarations;
  Sight sight = Sight(declarations);
  Includes includes;
  std::vector<Openness> openness;
  std::vector<std::size_t> cycles;  ///< For each file, a number that those of a cycle share.
  std::optional<std::vector<Clash>> clashes;
};

/// Returns the findings about a file that is checked alone, in the order of its words.
std::vector<Finding> CheckAlone(const Words& words, const LeftOut& leftOut = {});

}  // namespace zentho::idlgen
