#include "platform/qt_platform.h"

#include "support/qt_printers.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <gtest/gtest.h>

namespace stoikal {

using namespace Qt::StringLiterals;

TEST(QtClipboard, ImageTakesThePlaceOfWhatWasThere)
{
    QtClipboard clipboard;
    clipboard.SetText(u"2 H2 + O2"_s);
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    clipboard.SetImage(image);

    const QMimeData& held = *QGuiApplication::clipboard()->mimeData();
    ASSERT_TRUE(held.hasImage());
    EXPECT_FALSE(held.hasText());
    const QImage pasted = QGuiApplication::clipboard()->image();
    EXPECT_EQ(pasted.size(), QSize(30, 20));
    EXPECT_EQ(pasted.pixelColor(10, 10), QColor(Qt::red));
}

} // namespace stoikal
