#include "Models/Symbol.h"

#include "Views/Qt/SymbolImages.h"

#include <QString>

#include <gtest/gtest.h>

#include <algorithm>

namespace orvelle {

namespace {

QString named(std::string_view name) {
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

/// How much of the picture is covered, 0 to 1.
double coverage(const QImage& image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += qAlpha(image.pixel(x, y)) / 255.0;
    return sum / (image.width() * image.height());
}

} // namespace

TEST(SymbolTest, everySymbolDraws) {
    for (const auto& row : symbolTable) {
        const auto image = SymbolImages::render(named(row.name), 24, Qt::white, 2);
        ASSERT_FALSE(image.isNull()) << row.name;
        EXPECT_GT(coverage(image), 0.05) << row.name;
        EXPECT_LT(coverage(image), 0.95) << row.name;
    }
}

TEST(SymbolTest, noSymbolIsCutAtItsSides) {
    for (const auto& row : symbolTable) {
        const auto image = SymbolImages::render(named(row.name), 48, Qt::white, 1);
        int opaqueLeft = 0, opaqueRight = 0;
        for (int y = 0; y < image.height(); ++y) {
            opaqueLeft += qAlpha(image.pixel(0, y)) == 255;
            opaqueRight += qAlpha(image.pixel(image.width() - 1, y)) == 255;
        }
        EXPECT_LT(std::max(opaqueLeft, opaqueRight), image.height() / 2) << row.name;
    }
}

TEST(SymbolTest, anUnknownNameGivesNothing) {
    EXPECT_TRUE(SymbolImages::render(QStringLiteral("no.such.symbol"), 12, Qt::white, 1).isNull());
    EXPECT_TRUE(SymbolImages::extent(QStringLiteral("no.such.symbol"), 12).isEmpty());
}

TEST(SymbolTest, theColourIsTheOneAskedFor) {
    const QColor color(10, 200, 30);
    const auto image = SymbolImages::render(QStringLiteral("play.fill"), 40, color, 1);
    EXPECT_EQ(image.pixelColor(image.rect().center()), color);
}

TEST(SymbolTest, aDenseScreenGetsMorePixelsForTheSameSize) {
    const auto once = SymbolImages::render(QStringLiteral("gear"), 12, Qt::white, 1);
    const auto twice = SymbolImages::render(QStringLiteral("gear"), 12, Qt::white, 2);
    EXPECT_EQ(twice.width(), 2 * once.width());
    EXPECT_EQ(twice.deviceIndependentSize(), once.deviceIndependentSize());
}

} // namespace orvelle
