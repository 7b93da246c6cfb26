// Operations on string arrays.
#include "releases/modArray.h"

#include <algorithm>

#include "platform/text.h"

namespace releases {

StringArray::StringArray(std::initializer_list<std::string> entries) : slots_(1) {
    slots_.insert(slots_.end(), entries);
}

void arrayAdd(StringArray& theArray, std::string_view text, Duplicates duplicates) {
    if (duplicates == Duplicates::refused && arrayFind(theArray, text) != -1)
        return;
    theArray.add(std::string(text));
}

void arrayRemove(StringArray& theArray, std::string_view text) {
    arrayRemoveAt(theArray, arrayFind(theArray, text));
}

void arrayRemoveAt(StringArray& theArray, int index) {
    if (index >= 1 && index <= theArray.upperBound())
        theArray.removeSlot(index);
}

int arrayFind(const StringArray& theArray, std::string_view text) {
    const auto slots = theArray.slots();
    const auto at = std::find_if(slots.begin(), slots.end(), [&](const std::string& slot) {
        return platform::equalIgnoringCase(slot, text);
    });
    return at == slots.end() ? -1 : static_cast<int>(at - slots.begin());
}

} // namespace releases
