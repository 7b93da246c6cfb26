// The list of the catalogue on the screen: a filter that hides rows, an order to look at them in,
// keys that look at releases and keys that tick them, a word where there is nothing to show.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QElapsedTimer>
#include <QListView>

#include "mark_list_model.h"

namespace views {

class MarkListPainter;
class MarkListRows;

class MarkListView final : public QListView {
    Q_OBJECT

  public:
    /// Each is told the item, or all of them, and the revision of the list that the user saw.
    struct Gestures {
        using OfItem = std::function<void(const std::string& text, unsigned revision)>;
        OfItem click;
        OfItem read;
        std::function<void(std::vector<std::string> texts, bool marked, unsigned revision)> markAll;
    };

    MarkListView(const windows::MarkList& list, Gestures gestures, QWidget* parent);

    /// Shows the items whose text holds this one, case ignored; all of them for an empty text.
    void setFilter(const QString& text);
    /// Looks for it in the longer texts about the items too.
    void setSearchesAbout(bool searches);
    enum class Order { asListed, byName, tickedFirst, newestFirst, byPlayers, bySize };
    /// Rows come in that order until they are filled anew; a tick moves none.
    void setOrder(Order order);
    struct Placeholders {
        QString noItems;
        QString noMatch;
        QString noMatchInAbout; ///< where about texts are searched too
    };
    /// Pictures of the items, or a row for each.
    void setTiles(bool tiles);
    void setPlaceholders(const Placeholders& placeholders);
    /// What stands there where no row is shown.
    QString placeholder() const;

    /// Follows the list after a change of it.
    void follow();
    /// Runs when the items have become others.
    std::function<void()> onRefilled;
    /// Runs where the user asks for the list's menu, by mouse or keys, with its place on the
    /// screen.
    std::function<void(const QPoint& at)> onMenu;

    bool isMarked(int row) const;
    /// What a click on a row does.
    void toggle(int row);
    /// Makes a row the current one and looks at it.
    void moveTo(int row);
    /// Ticks or clears all rows that are shown.
    void markShown(bool marked);
    /// The same for all items, shown or not.
    void markAll(bool marked);

  protected:
    void keyboardSearch(const QString& text) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    const std::string& textOf(int row) const;
    void read(int row);
    void look(int row);
    void keepLooking();
    void showFound();
    void askForMenuAtRow();
    bool isSearching() const;

    MarkListModel* items_;
    MarkListRows* rows_;
    const windows::MarkList& list_;
    MarkListPainter* painter_;
    Gestures gestures_;
    /// The item that is looked at, shown or not.
    QPersistentModelIndex looked_;
    unsigned factsRevision_ = 0;
    bool wasFilled_ = false;
    Placeholders placeholders_;
    /// Since the last letter of a name that is typed.
    QElapsedTimer sinceLetter_;
};

} // namespace views
