// What a release brings, above the text about it: a picture on the left, what is known on the
// right.
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "layouts.h"
#include "main_view.h"
#include "picture_view.h"
#include "tree_view.h"

namespace views {

QWidget* MainView::contentsPane() {
    // A small map of the game as it is, and the frame around it.
    constexpr QSize pictureSize(132, 132);
    auto* pane = new QWidget(this);
    bind(main_.fraContents, pane, [] {});
    auto* column = tight<QVBoxLayout>(pane);
    auto* row = tight<QHBoxLayout>();
    auto* small = picture(main_.picContents, pictureSize);
    small->setFixedSize(pictureSize);
    small->setToolTip("Click to enlarge");
    row->addWidget(small, 0, Qt::AlignTop);
    auto* facts = label(main_.lblFacts);
    facts->setWordWrap(true);
    facts->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    facts->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::MinimumExpanding);
    facts->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* side = tight<QVBoxLayout>();
    side->addWidget(label(main_.lblPiece, true));
    side->addWidget(facts, 1);
    auto* way = tight<QHBoxLayout>();
    way->addWidget(button(main_.cmdPrevious, 'P'));
    way->addWidget(label(main_.lblWhich));
    way->addWidget(button(main_.cmdNext, 'X'));
    way->addStretch();
    side->addLayout(way);
    auto* units = treeList(main_.treUnits);
    units->setAccessibleName("Units");
    units->setRootIsDecorated(false);
    units->setSortable();
    units->setMinimumHeight(72);
    units->setMaximumHeight(110);
    // The description gets what the others leave.
    for (const auto& [section, width] :
         {std::pair(0, 100), std::pair(2, 48), std::pair(3, 60), std::pair(4, 60)})
        units->header()->resizeSection(section, width);
    units->header()->setStretchLastSection(false);
    units->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    side->addWidget(units);
    row->addLayout(side, 1);
    column->addLayout(row);
    auto* faults = label(main_.lblFaults, true);
    faults->setProperty("quiet", true);
    column->addWidget(faults);
    return pane;
}

} // namespace views
