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

TEST(SymbolTest, aBoldSymbolCoversMoreThanARegularOneAndIsNotCut) {
    for (const auto* name : {"chevron.left", "chevron.right", "arrow.clockwise"}) {
        for (const double devicePixelRatio : {1.0, 2.0}) {
            const auto draw = [&](int weight) {
                return SymbolImages::render(named(name), 9, Qt::white, devicePixelRatio, {weight});
            };
            const auto ink = [](const QImage& image) {
                return coverage(image) * image.width() * image.height();
            };
            EXPECT_GT(ink(draw(QFont::Bold)), 1.2 * ink(draw(QFont::Normal))) << name;
            EXPECT_GT(ink(draw(QFont::Bold)), 1.05 * ink(draw(QFont::Medium))) << name;
            EXPECT_EQ(draw(QFont::Thin), draw(QFont::Normal)) << name;
        }
        EXPECT_GE(SymbolImages::extent(named(name), 90, QFont::Bold).width(),
                  SymbolImages::extent(named(name), 90).width() + 2)
            << name;
    }
}

TEST(SymbolTest, inTheHierarchicalModeTheLargestPartIsFullAndTheOthersAreHalf) {
    const auto shades = [](const char* name) {
        const auto image =
            SymbolImages::render(named(name), 64, Qt::white, 2, {QFont::Normal, true});
        int full = 0, half = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const int alpha = qAlpha(image.pixel(x, y));
                full += alpha == 255;
                half += alpha == 127;
            }
        return std::pair(full, half);
    };
    for (const auto* name : {"sun.max.fill", "cloud.sun.fill", "cloud.rain.fill"}) {
        const auto [full, half] = shades(name);
        EXPECT_GT(half, 100) << name;
        EXPECT_GT(full, half) << name;
    }
    EXPECT_LT(shades("cloud.fill").second, 20) << "it has one part alone, with its edge";
    const auto plain = SymbolImages::render(named("sun.max.fill"), 64, Qt::white, 2);
    EXPECT_EQ(plain.pixelColor(plain.width() / 2, 12).alpha(), 255);
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
