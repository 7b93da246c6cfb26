// The list of the catalogue on the screen: a filter that hides rows, Space as a click, a word where
// there is nothing to show.
#pragma once

#include <functional>

#include <QListView>
#include <QSortFilterProxyModel>

#include "views/mark_list_model.h"

namespace views {

class MarkListView final : public QListView {
    Q_OBJECT

  public:
    /// `click` is told the item that the user has clicked, whatever rows are hidden.
    MarkListView(const platform::MarkList& list, std::function<void(int item)> click,
                 QWidget* parent);

    /// Shows the items whose text holds this one, case ignored; all of them for an empty text.
    void setFilter(const QString& text);
    /// What stands in a list without items, and in one without a match.
    void setPlaceholders(const QString& noItems, const QString& noMatch);

    /// Follows the list after a change of it.
    void follow();
    /// Runs when the items have become others.
    std::function<void()> onRefilled;

    bool isMarked(int row) const;
    /// What a click on a row does.
    void toggle(int row);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    MarkListModel* items_;
    QSortFilterProxyModel* rows_;
    std::function<void(int)> click_;
    bool wasFilled_ = false;
    QString noItems_;
    QString noMatch_;
};

} // namespace views
