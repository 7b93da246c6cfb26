// A badge is a label in the place of a tab's button.
#include "tab_badges.h"

#include <QLabel>
#include <QStyle>

namespace views {
namespace {

void showBadge(QTabBar& tabs, int tab, const windows::TabStrip::Badge& badge) {
    auto* label = static_cast<QLabel*>(tabs.tabButton(tab, QTabBar::RightSide));
    if (label == nullptr) {
        label = new QLabel(&tabs);
        label->setProperty("badge", true);
        label->setAlignment(Qt::AlignCenter);
        tabs.setTabButton(tab, QTabBar::RightSide, label);
    }
    const auto text = badge.marked == 0
                          ? QString::number(badge.all)
                          : QString::number(badge.marked) + " / " + QString::number(badge.all);
    if (text == label->text())
        return;
    label->setText(text);
    label->setProperty("some", badge.marked > 0);
    label->style()->unpolish(label);
    label->style()->polish(label);
    label->setAccessibleName(tabs.tabText(tab) + ": " + QString::number(badge.marked) + " of " +
                             QString::number(badge.all) + " marked");
    tabs.setTabToolTip(tab, label->accessibleName());
    // The badge is no part of the strip for screen readers.
    tabs.setAccessibleTabName(tab, tabs.tabText(tab) + ", " + QString::number(badge.marked) +
                                       " of " + QString::number(badge.all) + " marked");
    label->adjustSize();
    // Has the strip measure the tab anew.
    tabs.setTabText(tab, tabs.tabText(tab));
}

} // namespace

void showBadges(QTabBar& tabs, const windows::TabStrip& control) {
    for (int tab = 0; tab < static_cast<int>(control.badges().size()); ++tab)
        showBadge(tabs, tab, control.badges()[static_cast<std::size_t>(tab)]);
}

} // namespace views
