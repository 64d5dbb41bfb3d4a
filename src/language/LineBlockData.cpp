#include "language/LineBlockData.h"

#include "editor/CodeEditorBlockData.h"

namespace {

void AppendRegion(CodeEditorBlockData& data, const LineRegion& region, int length,
    const MultiLineHighlightingRule& rule)
{
    // A region that the line's end cuts off holds that place, too: whoever types there is in it.
    const int last = region.isClosed ? region.end - 1 : length;
    data.AppendIgnorePosition(region.start, last);
    if (rule.isSingleLineComment || rule.end.isEmpty())
        data.AppendSingleLineCommentPosition(region.start, last);
    if (!rule.isBlockComment)
        return;
    data.AppendBlockCommentPosition(region.start, last);
    if (region.opensHere)
        data.AppendBlockComment(region.start, 1);
    if (region.isClosed)
        data.AppendBlockComment(region.end, -1);
}

void AppendBraces(CodeEditorBlockData& data, const QString& text, int start, int end)
{
    for (int at = start; at < end; ++at)
        data.AppendBrace(text.at(at), at);
}

int TrimmedEnd(const QString& text, int end)
{
    while (end > 0 && text.at(end - 1).isSpace())
        --end;
    return end;
}

} // namespace

int FillBlockData(CodeEditorBlockData& data, const QString& text,
    const QVector<LineRegion>& regions, const RegionScanner& scanner)
{
    data.Clear();
    int codeStart = 0;
    for (const LineRegion& region : regions) {
        AppendBraces(data, text, codeStart, region.start);
        AppendRegion(data, region, text.size(), scanner.GetRule(region.rule));
        codeStart = region.end;
    }
    AppendBraces(data, text, codeStart, text.size());

    int indent = 0;
    while (indent < text.size() && text.at(indent).isSpace())
        ++indent;
    data.SetIndent(text.left(indent));

    // Comments at the end, with nothing but white space behind each.
    int length = text.size();
    int codeEnd = TrimmedEnd(text, length);
    for (auto region = regions.crbegin(); region != regions.crend(); ++region) {
        const MultiLineHighlightingRule& rule = scanner.GetRule(region->rule);
        if (region->end < codeEnd || !(rule.isSingleLineComment || rule.isBlockComment))
            break;
        length = region->start;
        codeEnd = TrimmedEnd(text, length);
    }
    data.SetNonCommentLength(length);
    data.SetEmpty(codeEnd == 0);
    return codeEnd;
}
