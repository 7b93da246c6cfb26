// Rows, tabs and which of them is current.
#include "windows/lists.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace windows {

void MarkList::setItems(std::vector<Item> items) {
    const bool sameTexts =
        revision_ > 0 && std::equal(items.begin(), items.end(), items_.begin(), items_.end(),
                                    [](const Item& a, const Item& b) { return a.text == b.text; });
    items_ = std::move(items);
    markedCount_ = static_cast<int>(
        std::count_if(items_.begin(), items_.end(), [](const Item& item) { return item.marked; }));
    if (!sameTexts) {
        index_ = -1;
        ++revision_;
    }
    changed();
}

void MarkList::clear() {
    items_.clear();
    index_ = -1;
    markedCount_ = 0;
    ++revision_;
    changed();
}

void MarkList::add(std::string text) {
    items_.push_back({std::move(text), false});
    ++revision_;
    changed();
}

void MarkList::setMarked(int index, bool marked) {
    if (!has(index) || items_[at(index)].marked == marked)
        return;
    items_[at(index)].marked = marked;
    markedCount_ += marked ? 1 : -1;
    changed();
}

int MarkList::find(std::string_view text) const {
    const auto item = std::find_if(items_.begin(), items_.end(),
                                   [&](const Item& each) { return each.text == text; });
    return item == items_.end() ? -1 : static_cast<int>(item - items_.begin());
}

const std::string& MarkList::itemText(int index) const {
    static const std::string none;
    return has(index) ? items_[at(index)].text : none;
}

bool MarkList::makeCurrent(std::string_view text) {
    const int wanted = find(text);
    if (wanted < 0)
        return false;
    index_ = wanted;
    changed();
    return true;
}

void MarkList::click(std::string_view text) {
    if (makeCurrent(text) && onClick)
        onClick(std::string(text));
}

void MarkList::read(std::string_view text) {
    if (makeCurrent(text) && onRead)
        onRead(std::string(text));
}

void MarkList::markAll(const std::vector<std::string>& texts, bool marked) {
    if (onMarkAll)
        onMarkAll(texts, marked);
}

void MarkList::tellFacts() {
    ++factsRevision_;
    changed();
}

void ListBox::clear() {
    items_.clear();
    changed();
}

void ListBox::add(std::string text, std::string note) {
    items_.push_back({std::move(text), std::move(note)});
    changed();
}

void TreeList::setRows(std::vector<Row> rows) {
    const auto key = current() == nullptr ? std::string() : current()->key;
    rows_ = std::move(rows);
    index_ = key.empty() ? -1 : find(key);
    if (index_ < 0 && !key.empty()) {
        const auto row = std::ranges::find_if(
            rows_, [&](const auto& each) { return platform::equalIgnoringCase(each.key, key); });
        index_ = row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin());
    }
    ++revision_;
    changed();
}

const TreeList::Row* TreeList::current() const {
    return index_ < 0 ? nullptr : &rows_[static_cast<std::size_t>(index_)];
}

int TreeList::find(std::string_view key) const {
    const auto row = std::ranges::find(rows_, key, &Row::key);
    return row == rows_.end() ? -1 : static_cast<int>(row - rows_.begin());
}

void TreeList::pick(std::string_view key) {
    const int wanted = find(key);
    if (wanted < 0)
        return;
    index_ = wanted;
    changed();
    if (onPick)
        onPick();
}

void ComboBox::pick(std::string_view text) {
    const auto row = std::find(rows_.begin(), rows_.end(), text);
    if (row == rows_.end())
        return;
    index_ = static_cast<int>(row - rows_.begin());
    setText(*row);
}

TabStrip::TabStrip(Window& owner, std::string name, std::vector<std::string> captions)
    : Control(owner, std::move(name)), captions_(std::move(captions)) {}

void TabStrip::setBadge(int index, Badge badge) {
    badges_.resize(captions_.size());
    badges_[static_cast<std::size_t>(index)] = badge;
    changed();
}

void TabStrip::click(std::string_view caption) {
    const auto tab = std::find(captions_.begin(), captions_.end(), caption);
    if (tab == captions_.end())
        return;
    index_ = static_cast<int>(tab - captions_.begin());
    changed();
    if (onClick)
        onClick();
}

} // namespace windows
