#include "check/file_check.h"

#include "words/cpp_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {
FileCheck::FileCheck(const Declarations& allDeclarations, const View& viewOfFile)
    : view(viewOfFile),
      file(viewOfFile.user()),
      words(file.words()),
      lookup(allDeclarations, viewOfFile),
      declarations(allDeclarations) {}

void FileCheck::report(const Rule& rule, std::size_t i, std::string_view text,
                       const Namespace& space) {
  const File* const first = view.firstIn(space);
  if (first != nullptr) {
    findings.push_back({&rule, i, text, {}, {{first->source, first->namespaceWord}}});
  }
}

bool FileCheck::reportHiding(const Rule& rule, std::size_t i, std::string_view text,
                             const Namespace& space, std::string_view name) {
  const Declaration* const other = view.find(space, name, [&](const Declaration& declaration) {
    return declaration.file != &file && !declaration.isItem();
  });
  const Namespace* const inner = view.inner(space, name);
  if (other != nullptr) {
    report(rule, i, text, *other);
  } else if (inner != nullptr) {
    report(rule, i, text, *inner);
  }
  return other != nullptr || inner != nullptr;
}

bool FileCheck::checkNewName(std::size_t i, std::string_view text) {
  if (!IsIdentifier(text)) {
    report(rules::notAName, i, text);
    return false;
  }
  const Keyword keyword = FindKeyword(text);
  if (keyword == Keyword::Cpp20) {
    report(rules::laterKeyword, i, text);
  } else if (keyword != Keyword::None) {
    report(rules::keywordAsName, i, text);
    return false;
  } else if (IsReserved(text)) {
    report(rules::reservedName, i, text);
  }
  return true;
}

}  // namespace zentho::idlgen
