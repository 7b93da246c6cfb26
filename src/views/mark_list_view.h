// The list of the catalogue on the screen: a filter that hides rows, Space as a click, a word where
// there is nothing to show.
#pragma once

#include <functional>
#include <string>

#include <QListView>
#include <QSortFilterProxyModel>

#include "mark_list_model.h"

namespace views {

class MarkListView final : public QListView {
    Q_OBJECT

  public:
    /// Told the item that the user has clicked, and the revision of the list that he saw.
    using Click = std::function<void(const std::string& text, unsigned revision)>;

    MarkListView(const windows::MarkList& list, Click click, QWidget* parent);

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
    const windows::MarkList& list_;
    Click click_;
    bool wasFilled_ = false;
    QString noItems_;
    QString noMatch_;
};

} // namespace views
