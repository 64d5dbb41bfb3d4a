#include "views/explorer/SectionHeights.h"

#include <QtGlobal>

namespace {

bool Shares(const SectionHeights::Section& section)
{
    return section.expanded && section.natural == 0;
}

/// Gives `rest` pixels to the sharing sections by their weights; the last one takes what rounding
/// leaves over.
void Share(
    QVector<int>& heights, const QVector<SectionHeights::Section>& sections, int rest, int minimum)
{
    double weights = 0.0;
    int sharing = 0;
    for (const SectionHeights::Section& section : sections) {
        weights += Shares(section) ? section.weight : 0.0;
        sharing += Shares(section) ? 1 : 0;
    }
    for (int i = 0; i < sections.size(); ++i) {
        if (!Shares(sections[i]))
            continue;
        --sharing;
        const double part = weights > 0.0 ? sections[i].weight / weights : 1.0 / (sharing + 1);
        const int most = qMax(minimum, rest - sharing * minimum);
        const int share = sharing == 0 ? rest : qBound(minimum, qRound(rest * part), most);
        heights[i] += qMax(0, share);
        rest -= share;
        weights -= sections[i].weight;
    }
}

} // namespace

QVector<int> SectionHeights::Distribute(
    int extent, int header, int minimum, const QVector<Section>& sections)
{
    QVector<int> heights(sections.size(), header);
    int rest = extent - header * sections.size();
    int reserved = 0;
    for (const Section& section : sections)
        reserved += Shares(section) ? minimum : 0;
    for (int i = 0; i < sections.size(); ++i) {
        const Section& section = sections[i];
        if (!section.expanded || section.natural == 0)
            continue;
        const int least = qMin(section.natural, minimum);
        const int height = qBound(least, rest - reserved, section.natural);
        heights[i] += height;
        rest -= height;
    }
    Share(heights, sections, qMax(0, rest), minimum);
    return heights;
}
