#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "ui/arrow_button.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using Way = ArrowButton::Way;

/// The sum of the darkness in the upper and in the lower half of the arrow.
std::pair<int, int> halves(Way way) {
    const std::unique_ptr<ArrowButton> made(arrowButton(u"CommandMove"_s, way, TextId::exitCommand));
    made->resize(made->sizeHint());
    const auto picture = made->grab().toImage();
    const int middle = picture.height() / 2;
    std::pair<int, int> dark{0, 0};
    for (int y = picture.height() / 4; y < picture.height() * 3 / 4; ++y) {
        for (int x = picture.width() / 4; x < picture.width() * 3 / 4; ++x)
            (y < middle ? dark.first : dark.second) += 255 - qGray(picture.pixel(x, y));
    }
    return dark;
}

} // namespace

TEST(ArrowButtons, AreSquareAndStaySo) {
    const std::unique_ptr<ArrowButton> made(arrowButton(u"CommandUp"_s, Way::up, TextId::exitCommand));
    EXPECT_EQ(made->sizeHint().width(), made->sizeHint().height());
    EXPECT_EQ(made->minimumSizeHint(), made->sizeHint());
    EXPECT_EQ(made->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    EXPECT_EQ(made->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
}

TEST(ArrowButtons, SayWhatTheyDoWithoutAText) {
    const std::unique_ptr<ArrowButton> made(arrowButton(u"CommandUp"_s, Way::up, TextId::exitCommand));
    EXPECT_EQ(made->objectName(), u"CommandUp"_s);
    EXPECT_EQ(made->text(), QString());
    EXPECT_EQ(made->accessibleName(), u"Exit"_s);
    EXPECT_EQ(made->toolTip(), u"Exit"_s);
}

TEST(ArrowButtons, PointUpAndDown) {
    const auto up = halves(Way::up);
    const auto down = halves(Way::down);
    EXPECT_NE(up, down);
    // The base of the arrow is the broader end.
    EXPECT_GT(up.second - up.first, down.second - down.first);
}

TEST(ArrowButtons, AreClickedByMouseAndKeyboard) {
    const std::unique_ptr<ArrowButton> made(arrowButton(u"CommandUp"_s, Way::up, TextId::exitCommand));
    int clicks = 0;
    QObject::connect(made.get(), &QPushButton::clicked, made.get(), [&clicks] { ++clicks; });
    made->show();
    QTest::mouseClick(made.get(), Qt::LeftButton);
    QTest::keyClick(made.get(), Qt::Key_Space);
    EXPECT_EQ(clicks, 2);
}

} // namespace kelvane::testing
