// Controls of several rows or tabs. What is picked is told by its text, never by its place: the
// rows may be others by the time that the owner hears of it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "formats/picture.h"
#include "windows/element.h"
#include "windows/list_filter.h"

namespace windows {

/// A list with an on/off mark for each item. Items count from 0.
class MarkList : public Control {
  public:
    struct Item {
        std::string text;
        bool marked = false;
    };

    using Control::Control;

    /// Replaces all items at once; none is current then. Where the texts are those that stand there
    /// already, only the marks change: the current item and the revision stay. So call `clear`
    /// first where equal texts stand for other things than before.
    void setItems(std::vector<Item> items);
    void clear();
    void add(std::string text);
    void setMarked(int index, bool marked);

    const std::vector<Item>& items() const { return items_; }
    int count() const { return static_cast<int>(items_.size()); }
    /// The item clicked last, or -1.
    int index() const { return index_; }
    /// The first item of that text, or -1.
    int find(std::string_view text) const;
    /// Empty for an index outside the list.
    const std::string& itemText(int index) const;
    bool marked(int index) const { return has(index) && items_[at(index)].marked; }
    int markedCount() const { return markedCount_; }
    /// Grows when items come or go.
    unsigned revision() const { return revision_; }

    /// What a click of the user does: makes the first item of that text current and tells the
    /// owner, who sets the marks. A text that no item has does nothing.
    void click(std::string_view text);
    /// What a user does who only looks: makes the first item of that text current and tells the
    /// owner. No mark changes.
    void read(std::string_view text);
    /// What a user does to many items at once; the owner sets the marks.
    void markAll(const std::vector<std::string>& texts, bool marked);

    std::function<void(const std::string& text)> onClick;
    std::function<void(const std::string& text)> onRead;
    std::function<void(const std::vector<std::string>& texts, bool marked)> onMarkAll;
    /// When an item was changed last, in seconds since 1970; and a longer text about it. A view may
    /// sort and search by them. They cost a look at the disk for each item.
    std::function<std::int64_t(const std::string& text)> dateOf;
    std::function<std::string(const std::string& text)> aboutOf;
    /// What is known by now of the maps that an item brings, or null; it stays as it is until the
    /// owner says that more is known. And a picture of it, or null: the owner finds those first
    /// which were asked for last. Both cost nothing much.
    std::function<const std::vector<MapFacts>*(const std::string& text)> factsOf;
    std::function<std::shared_ptr<const formats::Picture>(const std::string& text)> pictureOf;
    /// More is known of the items than before.
    void tellFacts();
    /// Grows with that.
    unsigned factsRevision() const { return factsRevision_; }

  private:
    bool makeCurrent(std::string_view text);
    bool has(int index) const { return index >= 0 && index < count(); }
    static std::size_t at(int index) { return static_cast<std::size_t>(index); }

    std::vector<Item> items_;
    int index_ = -1;
    int markedCount_ = 0;
    unsigned revision_ = 0;
    unsigned factsRevision_ = 0;
};

/// A plain list: nothing in it can be chosen.
class ListBox : public Control {
  public:
    struct Item {
        std::string text;
        std::string note; ///< stands beside the text, which it is no part of
    };

    using Control::Control;

    void clear();
    void add(std::string text, std::string note = {});
    const std::vector<Item>& items() const { return items_; }

  private:
    std::vector<Item> items_;
};

/// Rows that stand below each other as folders and files do, with a text for each column.
class TreeList : public Control {
  public:
    enum class Look { plain, quiet, decided, open };
    struct Row {
        std::string key; ///< tells it from all others, and is what it is picked by
        int parent = -1; ///< the place of a row ahead of it, or -1
        std::vector<std::string> texts;
        Look look = Look::plain;
        bool showsChildren = false; ///< until the user says otherwise
    };

    TreeList(Window& owner, std::string name, std::vector<std::string> columns)
        : Control(owner, std::move(name)), columns_(std::move(columns)) {}

    const std::vector<std::string>& columns() const { return columns_; }
    const std::vector<Row>& rows() const { return rows_; }
    /// Replaces all rows. The current one stays, if there is a row of its key, in another case if
    /// need be.
    void setRows(std::vector<Row> rows);
    /// The place of the current row, or -1.
    int index() const { return index_; }
    const Row* current() const;
    /// The place of the row of that key, or -1.
    int find(std::string_view key) const;
    /// Grows when rows come or go.
    unsigned revision() const { return revision_; }

    /// What the user does: makes the row of that key current and tells the owner.
    void pick(std::string_view key);

    std::function<void()> onPick;

  private:
    std::vector<std::string> columns_;
    std::vector<Row> rows_;
    int index_ = -1;
    unsigned revision_ = 0;
};

/// A drop-down list that cannot be typed into. Its text is the row chosen, empty at first.
class ComboBox : public Control {
  public:
    ComboBox(Window& owner, std::string name, std::vector<std::string> rows)
        : Control(owner, std::move(name)), rows_(std::move(rows)) {}

    const std::vector<std::string>& rows() const { return rows_; }
    /// The row chosen, or -1.
    int index() const { return index_; }
    /// Chooses the row of that text; without one nothing changes.
    void pick(std::string_view text);

  private:
    std::vector<std::string> rows_;
    int index_ = -1;
};

/// A strip of tabs. One tab is always current.
class TabStrip : public Control {
  public:
    TabStrip(Window& owner, std::string name, std::vector<std::string> captions);

    const std::vector<std::string>& captions() const { return captions_; }
    int index() const { return index_; }
    const std::string& caption() const { return captions_[static_cast<std::size_t>(index_)]; }
    /// What a click of the user does, also on the current tab. Does nothing without such a tab.
    void click(std::string_view caption);

    /// Figures that stand beside the caption of a tab.
    struct Badge {
        int marked = 0;
        int all = 0;
    };
    /// One for each tab, or none at all before the first was set.
    const std::vector<Badge>& badges() const { return badges_; }
    void setBadge(int index, Badge badge);

    std::function<void()> onClick;

  private:
    std::vector<std::string> captions_;
    std::vector<Badge> badges_;
    int index_ = 0;
};

} // namespace windows
