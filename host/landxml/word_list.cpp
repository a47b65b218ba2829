#include "landxml/word_list.h"

#include <cstdint>

namespace korvel::inspector {
namespace {

// A position is the entry's number plus 1, because the null position is the end.
EnumPosition PositionOf(long entry) {
    return reinterpret_cast<EnumPosition>(static_cast<std::uintptr_t>(entry + 1));
}

long EntryAt(EnumPosition position) {
    return static_cast<long>(reinterpret_cast<std::uintptr_t>(position)) - 1;
}

} // namespace

bool WordList::GetName(long id, CVariantValue& name) {
    const std::string* word = WordOf(id);
    if (!word)
        return false;
    name = CVariantValue();
    name.Type = DT_String;
    name.Text = *word;
    return true;
}

// No entry is -1, whose position is null.
EnumPosition WordList::GetFirstPosition() {
    return PositionOf(EntryFrom(0));
}

long WordList::GetNext(EnumPosition& position) {
    const long entry = EntryAt(position);
    if (entry != -1)
        position = PositionOf(EntryFrom(entry + 1));
    return entry;
}

} // namespace korvel::inspector
