#include "views/explorer/SectionHeights.h"

#include "support/TestMain.h"

#include <QtTest>

#include <numeric>

using SectionHeights::Section;
Q_DECLARE_METATYPE(SectionHeights::Section)

class SectionHeightsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void Distributes_data();
    void Distributes();
};

void SectionHeightsTest::Distributes_data()
{
    Columns<int, QVector<Section>, QVector<int>>("extent", "sections", "heights");
    const Section natural{true, 100, 1.0};
    const Section shut{false, 100, 1.0};
    const Section shutShare{false, 0, 1.0};
    const Section one{true, 0, 1.0};
    const Section three{true, 0, 3.0};
    // Headers are 20, and 60 is the least below one.
    Row("natural first, the rest by weight", 560, QVector<Section>{natural, one, three},
        QVector<int>{120, 120, 320});
    Row("collapsed ones are headers", 560, QVector<Section>{shut, one, shutShare},
        QVector<int>{20, 520, 20});
    Row("all collapsed stay small", 560, QVector<Section>{shut, shutShare, shutShare},
        QVector<int>{20, 20, 20});
    Row("nobody to take the rest", 560, QVector<Section>{natural, shutShare},
        QVector<int>{120, 20});
    Row("natural gives way to the others' minimum", 250, QVector<Section>{natural, one, one},
        QVector<int>{90, 80, 80});
    Row("a small weight keeps the minimum", 320, QVector<Section>{one, {true, 0, 100.0}},
        QVector<int>{80, 240});
    Row("a large weight leaves the minimum", 320, QVector<Section>{{true, 0, 100.0}, one},
        QVector<int>{240, 80});
    Row("a short natural is not stretched to the minimum", 100,
        QVector<Section>{{true, 30, 1.0}, one}, QVector<int>{50, 50});
    Row("weightless sections share alike", 240, QVector<Section>{{true, 0, 0.0}, {true, 0, 0.0}},
        QVector<int>{120, 120});
    Row("nothing", 100, QVector<Section>{}, QVector<int>{});
}

void SectionHeightsTest::Distributes()
{
    QFETCH(int, extent);
    QFETCH(QVector<Section>, sections);
    QTEST(SectionHeights::Distribute(extent, 20, 60, sections), "heights");
}

TE2_TEST(SectionHeightsTest)
#include "SectionHeightsTest.moc"
