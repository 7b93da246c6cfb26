// Each kind of control against its kind of widget.
#include "views/support/widget_state.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>
#include <QTreeView>

#include "picture_view.h"
#include "views/window_view.h"

namespace test {
namespace {

using views::shown;

QString withoutAccessKey(QString caption) {
    return caption.replace("&&", QChar(1)).remove('&').replace(QChar(1), '&');
}

/// The text of a widget of one text, without marks of access keys.
QString textOn(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return label->text();
    if (const auto* button = qobject_cast<const QPushButton*>(&widget))
        return withoutAccessKey(button->text());
    if (const auto* box = qobject_cast<const QCheckBox*>(&widget))
        return withoutAccessKey(box->text());
    if (const auto* frame = qobject_cast<const QGroupBox*>(&widget))
        return frame->title();
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        return line->text();
    if (const auto* lines = qobject_cast<const QPlainTextEdit*>(&widget))
        return lines->toPlainText();
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
        return combo->currentText();
    if (const auto* picture = qobject_cast<const views::PictureView*>(&widget))
        return picture->accessibleName();
    return {};
}

QString markedRow(const QString& text, bool marked) {
    return marked ? text + "*" : text;
}

void addBranches(const QTreeView& tree, const QModelIndex& parent, QStringList& rows) {
    const auto* model = tree.model();
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const auto index = model->index(row, 0, parent);
        QStringList texts{index.data(Qt::UserRole).toString()};
        for (int column = 0; column < model->columnCount(); ++column)
            texts << index.siblingAtColumn(column).data().toString();
        rows << markedRow(texts.join(" | "), index == tree.currentIndex().siblingAtColumn(0));
        addBranches(tree, index, rows);
    }
}

QStringList rowsOn(const QWidget& widget) {
    QStringList rows;
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            rows << markedRow(tabs->tabText(tab), tab == tabs->currentIndex());
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        for (int row = 0; row < combo->count(); ++row)
            rows << markedRow(combo->itemText(row), row == combo->currentIndex());
    } else if (const auto* tree = qobject_cast<const QTreeView*>(&widget)) {
        addBranches(*tree, {}, rows);
        rows.sort();
    } else if (const auto* list = qobject_cast<const QListView*>(&widget)) {
        for (int row = 0; row < list->model()->rowCount(); ++row) {
            const auto index = list->model()->index(row, 0);
            rows << markedRow(index.data().toString(),
                              index.data(Qt::CheckStateRole).toInt() == Qt::Checked);
        }
    }
    return rows;
}

QStringList rowsOf(const windows::Control& control) {
    QStringList rows;
    if (const auto* tabs = dynamic_cast<const windows::TabStrip*>(&control)) {
        for (const auto& caption : tabs->captions())
            rows << markedRow(shown(caption), caption == tabs->caption());
    } else if (const auto* combo = dynamic_cast<const windows::ComboBox*>(&control)) {
        for (const auto& row : combo->rows())
            rows << markedRow(shown(row), row == combo->text());
    } else if (const auto* list = dynamic_cast<const windows::MarkList*>(&control)) {
        for (const auto& item : list->items())
            rows << markedRow(shown(item.text), item.marked);
    } else if (const auto* tree = dynamic_cast<const windows::TreeList*>(&control)) {
        for (const auto& row : tree->rows()) {
            QStringList texts{shown(row.key)};
            for (const auto& text : row.texts)
                texts << shown(text);
            rows << markedRow(texts.join(" | "), &row == tree->current());
        }
        rows.sort();
    } else if (const auto* plain = dynamic_cast<const windows::ListBox*>(&control)) {
        for (const auto& item : plain->items())
            rows << shown(item.text) + (item.note.empty() ? "" : "   (" + shown(item.note) + ")");
    }
    return rows;
}

class Comparison {
  public:
    Comparison(const windows::Window& window, const QWidget& view) : window_(window), view_(view) {
        compare(window, "title", shown(window.text()), view.windowTitle());
        compare(window, "visible", window.visible(), view.isVisible());
        for (const auto* control : window.controls())
            compareControl(*control);
    }

    std::vector<std::string> found;

  private:
    template <typename Value>
    void compare(const windows::Element& element, const char* what, const Value& control,
                 const Value& widget) {
        if (control != widget)
            found.push_back(element.name() + ": " + what + " is " +
                            QVariant(control).toStringList().join(", ").toStdString() +
                            ", its widget has " +
                            QVariant(widget).toStringList().join(", ").toStdString());
    }

    void compareControl(const windows::Control& control) {
        const auto name = QString::fromStdString(control.name());
        if (const auto* item = dynamic_cast<const windows::MenuItem*>(&control)) {
            if (const auto* action = view_.findChild<QAction*>(name))
                compareItem(*item, *action);
            else
                found.push_back(control.name() + ": there is no such menu item");
        } else if (dynamic_cast<const windows::Timer*>(&control) != nullptr) {
            const auto* timer = view_.findChild<QTimer*>(name);
            compare(control, "running", control.enabled(), timer != nullptr && timer->isActive());
        } else if (const auto* widget = view_.findChild<QWidget*>(name)) {
            compareWidget(control, *widget);
        } else if (dynamic_cast<const windows::Shape*>(&control) == nullptr &&
                   dynamic_cast<const windows::FilePicker*>(&control) == nullptr) {
            found.push_back(control.name() + ": there is no such widget");
        }
    }

    bool usable(const windows::Control& control) const {
        const bool isFrame = dynamic_cast<const windows::Frame*>(&control) != nullptr;
        return control.enabled() && !control.idle() &&
               (isFrame || (window_.enabled() && !window_.resting()));
    }

    static bool isHint(const windows::Control& control) {
        const auto* box = dynamic_cast<const windows::TextBox*>(&control);
        return box != nullptr && !box->hint.empty() && box->text() == box->hint;
    }

    /// A wizard shows of a step that is done no more than a line.
    bool isDone(const windows::Control& control) const {
        const windows::Control* frame = nullptr;
        for (const auto* each : window_.controls()) {
            if (dynamic_cast<const windows::Frame*>(each) != nullptr)
                frame = each;
            if (each == &control)
                break;
        }
        return frame != nullptr && !frame->enabled();
    }

    void compareItem(const windows::MenuItem& item, const QAction& action) {
        compare(item, "text", shown(item.text()).trimmed(), action.text());
        compare(item, "enabled", usable(item) && item.visible(), action.isEnabled());
        compare(item, "visible", item.visible(), action.isVisible());
        compare(item, "checked", item.checked(), action.isChecked());
    }

    void compareWidget(const windows::Control& control, const QWidget& widget) {
        if (dynamic_cast<const windows::Menu*>(&control) != nullptr)
            return compare(control, "text", withoutAccessKey(shown(control.text())),
                           withoutAccessKey(static_cast<const QMenu&>(widget).title()));
        if (dynamic_cast<const windows::ProgressBar*>(&control) == nullptr)
            compare(control, "text", isHint(control) ? QString() : shown(control.text()),
                    textOn(widget));
        compare(control, "rows", rowsOf(control), rowsOn(widget));
        compare(control, "enabled", usable(control), widget.isEnabled());
        if (static_cast<const views::WindowView&>(view_).isFilled())
            compare(control, "visible", control.visible() && !isDone(control),
                    widget.isVisibleTo(&view_));
        if (const auto* box = dynamic_cast<const windows::CheckBox*>(&control))
            compare(control, "checked", box->checked(),
                    static_cast<const QCheckBox&>(widget).isChecked());
        if (const auto* bar = dynamic_cast<const windows::ProgressBar*>(&control))
            compare(control, "done", bar->done(), static_cast<const QProgressBar&>(widget).value());
    }

    const windows::Window& window_;
    const QWidget& view_;
};

} // namespace

std::vector<std::string> mismatches(const windows::Window& window, const QWidget& view) {
    return Comparison(window, view).found;
}

} // namespace test
