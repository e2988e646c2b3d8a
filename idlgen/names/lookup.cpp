#include "names/lookup.h"

#include <algorithm>

#include "schema/builtin_types.h"
#include "words/similar.h"

namespace zentho::idlgen {

Lookup::Lookup(const View& viewOfUser)
    : view(viewOfUser),
      file(viewOfUser.user()),
      namespaces(file.namespaces),
      isInFramework(namespaces.size() > 1 && namespaces[1]->name == "zentho") {}

bool Lookup::mayBeElsewhere(std::string_view name) const {
  if (view.mayMiss(name)) return true;
  if (!isInFramework) return false;
  // The framework may have any name, but one like a built-in type is rather misspelt.
  SimilarWord builtin(name, 1);
  for (const BuiltinType& type : builtinTypes) builtin.compare(type.keyword);
  return builtin.found().empty();
}

Meaning Lookup::findInValue(std::string_view name, std::size_t word, std::size_t enumName) const {
  const Meaning unread = mayBeElsewhere(name) ? Meaning::Elsewhere : Meaning::Unknown;
  for (auto space = namespaces.rbegin(); space != namespaces.rend(); ++space) {
    const Declaration* record = nullptr;
    const Declaration* const item = view.find(**space, name, [&](const Declaration& declared) {
      const bool isOther = declared.file != &file;
      // The item itself is the word before its value.
      if (declared.isItem()) return isOther || declared.word + 1 < word;
      const bool isEnum = declared.role == Role::EnumName;
      if (isOther || (isEnum && declared.word <= enumName)) record = &declared;
      return false;
    });
    if (item != nullptr) return Meaning::Item;
    if (record != nullptr) {
      const bool isItself = record->file == &file && record->word == enumName;
      if (isItself || record->role != Role::EnumName) return Meaning::Unknown;
      return unread == Meaning::Elsewhere ? unread : Meaning::Type;
    }
    if (view.inner(**space, name) != nullptr) return Meaning::Unknown;
  }
  return unread;
}

bool Lookup::hasRecord(std::string_view name) const {
  return std::any_of(namespaces.begin(), namespaces.end(),
                     [&](const Namespace* space) { return recordIn(*space, name) != nullptr; });
}

std::size_t Lookup::ownWord(std::string_view name, bool isItem) const {
  for (const Declaration* const declaration : namespaces.back()->chain(name)) {
    const bool isOwn = declaration->file == &file && declaration->isItem() == isItem;
    if (isOwn) return declaration->word;
  }
  return noWord;
}

const Declaration* Lookup::recordIn(const Namespace& space, std::string_view name) const {
  return view.find(space, name,
                   [](const Declaration& declaration) { return !declaration.isItem(); });
}

}  // namespace zentho::idlgen
