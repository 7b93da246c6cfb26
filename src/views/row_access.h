// What rows of item views have in common for screen readers. Qt describes them as cells that can be
// selected and no more; each kind of view adds what can be done with its rows.
#pragma once

#include <vector>

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QPointer>

namespace views {

class RowAccess : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    explicit RowAccess(QAbstractItemView* view) : view_(view) {}

    bool isValid() const override { return view_ != nullptr && index().isValid(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(view_);
    }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList keyBindingsForAction(const QString& /*action*/) const override { return {}; }

  protected:
    /// Of its first column; none while nothing stands there.
    virtual QModelIndex index() const = 0;

  private:
    QPointer<QAbstractItemView> view_;
};

/// A view whose children are its rows.
class RowsAccess : public QAccessibleWidget {
  public:
    RowsAccess(QAbstractItemView* view, QAccessible::Role role)
        : QAccessibleWidget(view, role), view_(view) {}
    ~RowsAccess() override;

    QAccessibleInterface* child(int number) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;

  protected:
    virtual QAccessibleInterface* makeRow(int number) const = 0;
    /// The row of an index, from 0, or -1.
    virtual int numberOf(const QModelIndex& index) const = 0;

  private:
    QAbstractItemView* view_;
    /// Made when they are asked for. A row stays the same object whatever stands in it.
    mutable std::vector<QAccessible::Id> rows_;
};

} // namespace views
