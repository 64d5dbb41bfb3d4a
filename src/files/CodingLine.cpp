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

/// Whether what can be typed in English is in the codec what it is everywhere. In no other could
/// the declaration itself be read, or a "+" be typed without becoming something else.
bool KeepsPlainText(const QTextCodec& codec)
{
    static const QByteArray PLAIN = [] {
        QByteArray plain = QByteArrayLiteral("\t\n");
        for (char character = ' '; character <= '~'; ++character)
            plain += character;
        return plain;
    }();
    return codec.fromUnicode(QString::fromLatin1(PLAIN)) == PLAIN
        && codec.toUnicode(PLAIN) == QString::fromLatin1(PLAIN);
}

QByteArray CodecName(const QByteArray& declared)
{
    const QTextCodec* const codec = QTextCodec::codecForName(ToolkitName(declared));
    return codec && KeepsPlainText(*codec) ? codec->name() : QByteArray();
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
