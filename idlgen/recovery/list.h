#pragma once

#include <cstddef>
#include <optional>

#include "words/located_words.h"

namespace zentho::idlgen {

/// The lines of one list of members or items. To the grammar, a list is words that alternate, so
/// that one word too many gives another role to all after it. Lines show where pairs begin again:
/// one with an odd number of words is wrong, unless its last word begins a pair that the next line
/// ends.
///
/// Refers to the words and types, which must not change.
class List {
 public:
  /// Finds the list that contains this word of a file, which declares these types.
  List(const LocatedWords& located, const TypeNames& typeNames, std::size_t word);

  [[nodiscard]] bool isEnum() const { return words.role(begin) == Role::ItemName; }
  [[nodiscard]] bool isRequest() const;
  [[nodiscard]] bool isBegin(std::size_t word) const { return word == begin; }

  /// Returns the index of the first word after the list.
  [[nodiscard]] std::size_t end() const;

  /// Returns the first line up to that of this word that opens a block or begins a statement, or
  /// whose words cannot be read as names followed by types or values. A pair may stand on two
  /// lines.
  [[nodiscard]] std::optional<WordRange> firstWrongLine(std::size_t last) const;

  /// Returns the words of the list that stand on the line of this one, and the word itself, which
  /// may begin with a brace.
  [[nodiscard]] WordRange lineOf(std::size_t word) const;

  /// Returns the index of the "{" of a block that a line opens, or of a declaration that begins in
  /// the line, or `noWord`.
  [[nodiscard]] std::size_t blockBegin(WordRange line) const;

  /// Returns the keyword of a statement that begins in the line, as if the list had ended, or
  /// `noWord`: it is the whole line, such as `include "a.idl"`, or a declaration with its brace.
  [[nodiscard]] std::size_t statementIn(WordRange line) const;

  /// Returns the word that qualifies a declaration on the line, as in other languages, or `noWord`.
  /// If it has a place in a pair, it is a name.
  [[nodiscard]] std::size_t qualifierIn(WordRange line) const;

  /// Returns the first of several names that a line declares with one type, as in `int8 x, y` and
  /// `x, y: int8`, or `noWord`.
  [[nodiscard]] std::size_t oneOfSeveralNames(WordRange line) const;

  /// Returns whether a line of pairs is wrong as a whole: another word qualifies a declaration, as
  /// in `1: required int32 x`, an operator stands alone, as in `A: (1 << 2)`, colons join two
  /// words, as in `A = E::B`, a template has a space, or a comment begins.
  [[nodiscard]] bool isOneDeclaration(WordRange line) const;

  /// Returns whether the word is rather a type or a value than a name.
  [[nodiscard]] bool looksLikeTypeOrValue(std::size_t i) const;

  const LocatedWords& words;

 private:
  [[nodiscard]] bool opensBlock(std::size_t keyword) const;
  [[nodiscard]] std::size_t endInList(std::size_t i) const;
  [[nodiscard]] bool pairContinues(WordRange line) const;

  const TypeNames& types;
  std::size_t begin;
};

}  // namespace zentho::idlgen
