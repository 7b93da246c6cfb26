// A panel without a frame whose marker shows that work goes on.
#include "working_view.h"

#include <QPainter>
#include <QVBoxLayout>

namespace views {
namespace {

/// At 96 dots an inch.
int pixels(int twips) {
    return twips / 15;
}

class WorkingView final : public WindowView {
  public:
    WorkingView(windows::frmWorking& window, QtToolkit& toolkit)
        : WindowView(window, toolkit), panel_(window) {
        setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
        setFixedSize(pixels(windows::frmWorking::innerWidth),
                     pixels(windows::frmWorking::innerHeight));
        auto* column = new QVBoxLayout(this);
        column->addStretch();
        for (auto* line : {&window.lblWorking1, &window.lblWorking2}) {
            auto* text = label(*line, true);
            text->setAlignment(Qt::AlignCenter);
            column->addWidget(text);
        }
        column->addStretch();
        timer(window.tmrMove);
        addBinding(window.shpMove, [this] { update(); });
    }

  protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        constexpr int border = 2;
        painter.fillRect(rect(), palette().color(QPalette::Button));
        painter.setPen(QPen(palette().color(QPalette::PlaceholderText), border));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Highlight));
        const auto& marker = panel_.shpMove;
        painter.drawRoundedRect(QRect(pixels(marker.left()), pixels(marker.top()),
                                      pixels(marker.size()), pixels(marker.size())),
                                4, 4);
    }

  private:
    windows::frmWorking& panel_;
};

} // namespace

std::unique_ptr<WindowView> makeWorkingView(windows::frmWorking& window, QtToolkit& toolkit) {
    return std::make_unique<WorkingView>(window, toolkit);
}

} // namespace views
