// One style for every desktop, so that the windows look the same wherever the game is played.
#include "views/style.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

#include "dark_desktop.h"
#include "message_icons.h"

/// Those of a static library come in only where they are asked for, outside of any namespace.
static void loadResources() {
    Q_INIT_RESOURCE(vexillum);
}

namespace views {
namespace {

struct Colours {
    const char* window;
    const char* base;
    const char* raised;
    const char* border;
    const char* text;
    const char* faint;
    const char* accent;
    const char* onAccent;
    const char* hover;
    const char* handle; ///< of a scroll bar
};

constexpr Colours light = {"#f4f5f7", "#ffffff", "#ffffff", "#c9ced6", "#1c2128",
                           "#636c78", "#1f5fbf", "#ffffff", "#e6edf8", "#8b95a3"};
constexpr Colours dark = {"#1e2227", "#16191d", "#2a2f36", "#444c57", "#e4e7eb",
                          "#98a2b0", "#5b9cf5", "#0d1218", "#303947", "#66717f"};

bool desktopIsDark() {
    const auto window = QApplication::palette().color(QPalette::Window);
    return window.lightness() < 128 ||
           qEnvironmentVariable("GTK_THEME").contains("dark", Qt::CaseInsensitive) ||
           settingsSayDark();
}

QPalette paletteOf(const Colours& colours) {
    QPalette palette;
    palette.setColor(QPalette::Window, colours.window);
    palette.setColor(QPalette::WindowText, colours.text);
    palette.setColor(QPalette::Base, colours.base);
    palette.setColor(QPalette::AlternateBase, colours.window);
    palette.setColor(QPalette::Text, colours.text);
    palette.setColor(QPalette::PlaceholderText, colours.faint);
    palette.setColor(QPalette::Button, colours.raised);
    palette.setColor(QPalette::ButtonText, colours.text);
    palette.setColor(QPalette::Highlight, colours.accent);
    palette.setColor(QPalette::HighlightedText, colours.onAccent);
    palette.setColor(QPalette::Link, colours.accent);
    palette.setColor(QPalette::ToolTipBase, colours.raised);
    palette.setColor(QPalette::ToolTipText, colours.text);
    palette.setColor(QPalette::Mid, colours.border);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colours.faint);
    return palette;
}

constexpr auto sheet = R"(
QToolTip { border: 1px solid @border; padding: 4px; }
QMenuBar { background: @window; padding: 2px 4px; }
QMenuBar::item { padding: 5px 10px; border-radius: 5px; }
QMenuBar::item:selected { background: @hover; }
QMenu { background: @raised; border: 1px solid @border; padding: 4px; }
QMenu::item { padding: 6px 26px 6px 26px; border-radius: 4px; }
QMenu::item:selected { background: @hover; color: @text; }
QMenu::item:disabled { color: @faint; }
QMenu::indicator { left: 7px; width: 13px; height: 13px; }
QLabel[heading="true"] { font-weight: 600; padding: 2px 0; }
QPushButton { background: @raised; border: 1px solid @border; border-radius: 6px;
              padding: 6px 14px; min-height: 1.3em; outline: none; }
QPushButton:hover { background: @hover; }
QPushButton:pressed { background: @border; }
QPushButton:focus { border: 2px solid @accent; padding: 5px 13px; }
QPushButton:disabled { color: @faint; background: @window; }
QPushButton[link="true"] { background: transparent; border: none; color: @accent;
                           padding: 2px; min-height: 0; }
QPushButton[link="true"]:disabled { color: @faint; }
QPushButton[link="true"]:hover, QPushButton[link="true"]:focus { text-decoration: underline; }
QPushButton[link="true"]:focus { border: none; padding: 2px; }
QPushButton#cmdGo { background: @accent; color: @onAccent; border: none; font-weight: 600;
                    font-size: 13pt; padding: 10px 22px; border-radius: 8px; }
QPushButton#cmdGo:hover { border: 2px solid @text; }
QPushButton#cmdGo:focus { border: 2px solid @text; }
QPushButton#cmdGo:disabled { background: @border; color: @faint; }
QLineEdit, QPlainTextEdit, QListView { background: @base; border: 1px solid @border;
                                       border-radius: 6px; }
QLineEdit { padding: 5px 8px; min-height: 1.3em; }
QComboBox { background: @base; border: 1px solid @border; border-radius: 6px; padding: 5px 10px;
            min-height: 1.3em; }
QComboBox:focus { border: 1px solid @accent; }
QComboBox:disabled { color: @faint; }
QComboBox::drop-down { border: none; width: 26px; }
QComboBox::down-arrow { image: url(:/arrow.png); width: 12px; height: 12px; }
QComboBox QAbstractItemView { background: @raised; border: 1px solid @border; padding: 2px; }
QToolButton#listMenuButton { background: @raised; border: 1px solid @border; border-radius: 6px;
                             padding: 5px 24px 5px 10px; min-height: 1.3em; }
QToolButton#listMenuButton:hover { background: @hover; }
QToolButton#listMenuButton:focus { border: 1px solid @accent; }
QToolButton#listMenuButton:disabled { color: @faint; background: @window; }
QToolButton#listMenuButton::menu-indicator { image: url(:/arrow.png); width: 12px; height: 12px;
                                             subcontrol-origin: padding;
                                             subcontrol-position: right center; right: 7px; }
QLabel[quiet="true"] { color: @faint; font-weight: normal; }
QScrollArea#content, QScrollArea#content > QWidget > QWidget { background: @window; }
QScrollBar { background: transparent; border: none; }
QScrollBar:vertical { width: 12px; }
QScrollBar:horizontal { height: 12px; }
QScrollBar::handle { background: @handle; border-radius: 4px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 28px; }
QScrollBar::handle:horizontal { min-width: 28px; }
QScrollBar::handle:hover { background: @faint; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QPlainTextEdit { padding: 4px; }
QLineEdit:focus, QPlainTextEdit:focus, QListView:focus { border: 1px solid @accent; }
QLineEdit:disabled, QPlainTextEdit:disabled { color: @faint; }
QTreeView { background: @base; border: 1px solid @border; border-radius: 6px; outline: none; }
QTreeView:focus { border: 1px solid @accent; }
QTreeView:disabled { background: @window; }
QTreeView::item { padding: 3px 0; }
QTreeView::item:hover { background: @hover; }
QTreeView::item:selected { background: @hover; color: @text; }
QTreeView::branch:selected, QTreeView::branch:hover { background: transparent; }
QHeaderView::section { background: @window; color: @faint; border: none; padding: 5px 6px;
                       border-bottom: 1px solid @border; }
QListView { padding: 4px; outline: none; }
QListView::item { padding: 5px 4px; border-radius: 4px; color: @text; }
QListView:disabled { background: @window; }
QListView::item:disabled { color: @faint; }
QListView::item:hover { background: @hover; }
QListView::item:selected { background: @hover; color: @text; border: 1px solid @accent; }
QListView::item:selected:disabled { background: @window; color: @faint; border-color: @border; }
QTabBar::tab { padding: 8px 16px; margin: 0 2px; border-bottom: 3px solid transparent;
               color: @faint; }
QTabBar::tab:hover { color: @text; }
QTabBar::tab:selected { color: @text; font-weight: 600; border-bottom: 3px solid @accent; }
QTabBar:focus { outline: none; }
QTabBar::tab:selected:focus { background: @hover; }
QLabel[badge="true"] { background: @hover; color: @faint; border-radius: 7px; padding: 0 7px;
                       border: 1px solid @border; font-size: 8pt; font-weight: 600;
                       margin-right: 6px; }
QLabel[badge="true"][some="true"] { background: @accent; color: @onAccent; }
QGroupBox { border: 1px solid @border; border-radius: 8px; margin-top: 0.7em; padding: 12px;
            font-weight: 600; }
QGroupBox::title { subcontrol-origin: margin; left: 12px; padding: 0 4px; }
QGroupBox > QWidget { font-weight: normal; }
QGroupBox#fraCurrSetup { padding: 8px 12px; }
QGroupBox#fraCurrSetup > QLineEdit { padding: 2px 8px; }
QPushButton#cmdRevert, QPushButton#cmdClean { padding: 3px 14px; }
QPushButton#cmdRevert:focus, QPushButton#cmdClean:focus { padding: 2px 13px; }
QSplitter::handle { background: transparent; }
)";

QString styleSheetOf(const Colours& colours) {
    QString text = sheet;
    // The longer names come first, since "@base" is no head of another but "@text" might be one.
    text.replace("@onAccent", colours.onAccent);
    text.replace("@handle", colours.handle);
    text.replace("@window", colours.window);
    text.replace("@raised", colours.raised);
    text.replace("@border", colours.border);
    text.replace("@accent", colours.accent);
    text.replace("@hover", colours.hover);
    text.replace("@faint", colours.faint);
    text.replace("@base", colours.base);
    text.replace("@text", colours.text);
    return text;
}

/// Check boxes whose frame can be seen on a dark ground too, and signs of its own for messages.
class Style final : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_IndicatorItemViewItemCheck || element == PE_IndicatorCheckBox)
            drawCheck(*option, *painter);
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override {
        const auto palette = QApplication::palette();
        if (icon == SP_MessageBoxQuestion)
            return questionIcon(palette.color(QPalette::Highlight),
                                palette.color(QPalette::HighlightedText));
        if (icon == SP_MessageBoxWarning)
            return warningIcon();
        return QProxyStyle::standardIcon(icon, option, widget);
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }

  private:
    static void drawCheck(const QStyleOption& option, QPainter& painter) {
        const bool isChecked = (option.state & State_On) != 0;
        const auto palette = QApplication::palette();
        const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(isChecked ? palette.color(QPalette::Link)
                                 : palette.color(QPalette::PlaceholderText));
        painter.setBrush(isChecked ? palette.color(QPalette::Link) : palette.color(QPalette::Base));
        painter.drawRoundedRect(box, 3, 3);
        if (isChecked) {
            painter.setPen(QPen(palette.color(QPalette::HighlightedText), box.width() / 7,
                                Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            const auto at = [&box](double x, double y) {
                return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
            };
            painter.drawPolyline(QPolygonF({at(0.24, 0.53), at(0.43, 0.72), at(0.77, 0.3)}));
        }
        painter.restore();
    }
};

} // namespace

void applyStyle(QApplication& application) {
    const auto& colours = desktopIsDark() ? dark : light;
    QApplication::setStyle(new Style("Fusion"));
    QApplication::setPalette(paletteOf(colours));
    application.setStyleSheet(styleSheetOf(colours));
    loadResources();
    QApplication::setWindowIcon(QIcon(":/vexillum.ico"));
}

} // namespace views
