#include "files/CodingLine.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QTextCodec>

namespace {

constexpr int LONGEST_LINES = 1000; // bytes, of both

/// Python's names that the toolkit does not know.
const struct
{
    const char* python;
    const char* toolkit;
} NAMES[] = {
    {"ascii", "US-ASCII"},
    {"latin", "ISO-8859-1"},
    {"l1", "ISO-8859-1"},
    {"iso-latin-1", "ISO-8859-1"},
    {"utf", "UTF-8"},
    {"u8", "UTF-8"},
    {"utf8", "UTF-8"},
    {"utf-8-sig", "UTF-8"},
    {"mbcs", ""},
};

QByteArray ToolkitName(QByteArray name)
{
    name = name.toLower().replace('_', '-');
    for (const auto& row : NAMES) {
        if (name == row.python)
            return row.toolkit;
    }
    // Editors mark the line ends there as well.
    for (const char* suffix : {"-unix", "-dos", "-mac"}) {
        if (name.endsWith(suffix))
            name.chop(static_cast<int>(qstrlen(suffix)));
    }
    return name.startsWith("cp125") ? "windows-" + name.mid(2) : name;
}

QByteArray CodecName(const QByteArray& declared)
{
    const QTextCodec* const codec = QTextCodec::codecForName(ToolkitName(declared));
    const QString sample = QStringLiteral("# coding:\n");
    return codec && codec->fromUnicode(sample) == sample.toLatin1() ? codec->name() : QByteArray();
}

} // namespace

QByteArray FindDeclaredCodec(const QByteArray& bytes)
{
    static const QRegularExpression DECLARATION(
        QStringLiteral("\\A(?:[ \\t\\f]*(?:#[^\\r\\n]*)?(?:\\r\\n|\\r|\\n))??"
                       "[ \\t\\f]*#[^\\r\\n]*?coding[:=][ \\t]*([-\\w.]+)"));
    const QString head = QString::fromLatin1(bytes.constData(), qMin(bytes.size(), LONGEST_LINES));
    const QRegularExpressionMatch match = DECLARATION.match(head);
    return match.hasMatch() ? CodecName(match.captured(1).toLatin1()) : QByteArray();
}
