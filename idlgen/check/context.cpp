#include "check/context.h"

#include "words/cpp_words.h"
#include "words/word_forms.h"

namespace zentho::idlgen {

Context::Context(const View& viewOfFile)
    : view(viewOfFile), file(viewOfFile.user()), words(file.words()), lookup(viewOfFile) {}

bool Context::reportNamespace(const Rule& rule, std::size_t i, std::string_view text,
                              const Namespace* space) {
  const CheckedFile* const first = space == nullptr ? nullptr : view.firstIn(*space);
  if (first == nullptr) return false;
  report(rule, i, text, {{first->source, first->namespaceWord}});
  return true;
}

bool Context::reportHiding(const Rule& rule, std::size_t i, std::string_view text,
                           const Namespace& space, std::string_view name) {
  const Declaration* const other = view.find(space, name, [&](const Declaration& declaration) {
    return declaration.file != &file && !declaration.isItem();
  });
  if (other == nullptr) return reportNamespace(rule, i, text, view.inner(space, name));
  report(rule, i, text, *other);
  return true;
}

bool Context::checkNewName(std::size_t i, std::string_view text) {
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
