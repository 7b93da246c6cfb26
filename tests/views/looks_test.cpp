// What is drawn can be read, in the style of the program, light and dark.
#include <algorithm>
#include <cmath>

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QToolButton>

#include "views/style.h"
#include "views/support/window_test.h"
#include "windows/frmShowReadme.h"

namespace {

using test::find;
using test::WindowTest;

/// Of the two lights, as accessibility guidelines reckon it: from 1 to 21.
double contrast(const QColor& one, const QColor& other) {
    const auto light = [](const QColor& colour) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
               0.0722 * part(colour.blueF());
    };
    const auto [low, high] = std::minmax({light(one), light(other)});
    return (high + 0.05) / (low + 0.05);
}

/// The program's style for the life of the object.
class Styled {
  public:
    explicit Styled(bool dark) : palette_(QApplication::palette()) {
        qputenv("GTK_THEME", dark ? "Adwaita:dark" : "Adwaita");
        views::applyStyle(*qApp);
    }
    ~Styled() {
        qunsetenv("GTK_THEME");
        qApp->setStyleSheet({});
        QApplication::setStyle("Fusion");
        QApplication::setPalette(palette_);
    }
    Styled(const Styled&) = delete;
    Styled& operator=(const Styled&) = delete;

  private:
    QPalette palette_;
};

TEST(Looks, the_figure_on_a_bar_can_be_read_on_either_ground) {
    constexpr double readable = 4.5;
    for (const bool dark : {false, true}) {
        const Styled styled(dark);
        views::QtToolkit toolkit;
        windows::frmShowReadme log(toolkit);
        toolkit.load(log);
        log.barDone.setVisible(true);
        for (const std::size_t done : {std::size_t{0}, std::size_t{20'000}}) {
            log.barDone.setDone(done, 20'000);
            toolkit.show(log);
            auto* bar = find<QProgressBar>("barDone");
            const auto image = bar->grab().toImage();
            const QRect inner = image.rect().adjusted(8, 5, -8, -5);
            const auto ground = image.pixelColor(inner.topLeft());
            double most = 1;
            for (int x = inner.left(); x <= inner.right(); ++x)
                for (int y = inner.top(); y <= inner.bottom(); ++y)
                    most = std::max(most, contrast(ground, image.pixelColor(x, y)));
            EXPECT_GE(most, readable) << (dark ? "dark" : "light") << " at " << done;
        }
    }
}

TEST_F(WindowTest, list_and_text_keep_some_rows_in_a_low_window) {
    const Styled styled(false);
    for (int i = 0; i < 9; ++i)
        game.makeFolder("Vexillum/TC-" + std::to_string(i));
    run({
        // What a screen of 1920 by 1080 leaves at twice the size.
        [] { find<QWidget>("frmMain")->resize(952, 500); },
        [] {
            auto* list = find<QListView>("lstList");
            EXPECT_GE(list->viewport()->height(), 4 * list->sizeHintForRow(0));
            auto* about = find<QPlainTextEdit>("txtAbout");
            EXPECT_GE(about->viewport()->height(), 4 * about->fontMetrics().height());
            EXPECT_EQ(find<QToolButton>("listMenuButton")->height(),
                      find<QLineEdit>("filter")->height());
            find<QWidget>("frmMain")->close();
        },
    });
}

} // namespace
