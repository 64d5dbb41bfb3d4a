#include "window/AboutText.h"

#include "plugin/MayaUtil.h"
#include "settings/Settings.h"
#include "window/chrome/Theme.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QUrl>

namespace {

constexpr int NAME_GAP = 16; // design pixels
constexpr int SCALE_DIGITS = 3;

QString Translate(const char* text)
{
    return QCoreApplication::translate("AboutText", text);
}

QString OrUnknown(const QString& text)
{
    return text.trimmed().isEmpty() ? Translate("unknown") : text.trimmed();
}

QString Pylint()
{
    return Settings::pylintEnabled ? OrUnknown(Settings::pylintPath) : Translate("off");
}

QString ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

} // namespace

QVector<AboutRow> AboutText::Rows()
{
    const QString folder = Settings::GetUserConfigDirectory();
    return {
        {Translate("Plug-in version"), Settings::VERSION_STRING, false},
        {Translate("Host version"), OrUnknown(MayaUtil::GetMayaVersionString()), false},
        {Translate("Python"), OrUnknown(MayaUtil::GetPythonVersion()), false},
        {Translate("Qt"), OrUnknown(MayaUtil::GetQtVersion()), false},
        {Translate("Interface scale"),
            QString::number(Settings::customScaleValue, 'g', SCALE_DIGITS), false},
        {Translate("Configuration folder"), OrUnknown(folder), !folder.isEmpty()},
        {Translate("Pylint"), Pylint(), false},
    };
}

QString AboutText::Plain(const QVector<AboutRow>& rows)
{
    QString text;
    for (const AboutRow& row : rows)
        text += QStringLiteral("%1: %2\n").arg(row.name, row.value);
    return text;
}

QString AboutText::Html(const QVector<AboutRow>& rows)
{
    const QString name = Theme::Color(Theme::Role::Soft).name();
    const QString link = Theme::Color(Theme::Role::LakeText).name();
    QString html;
    for (const AboutRow& row : rows) {
        QString value = row.value.toHtmlEscaped();
        if (row.isFolder)
            value = QStringLiteral("<a href=\"%1\" style=\"color:%2\">%3</a>")
                        .arg(QUrl::fromLocalFile(row.value).toString(QUrl::FullyEncoded), link,
                            value);
        html += QStringLiteral(
            "<tr><td style=\"color:%1; padding-right:%2px\">%3</td><td>%4</td></tr>")
                    .arg(name, QString::number(Theme::Dp(NAME_GAP)), row.name.toHtmlEscaped(),
                        value);
    }
    return QStringLiteral("<table cellspacing=\"0\" cellpadding=\"%1\">%2</table>")
        .arg(QString::number(Theme::Dp(2)), html);
}

QString AboutText::Licences()
{
    const QDir folder(QStringLiteral(":/te2_licenses"));
    QString text = QStringLiteral("%1\n\n%2\n")
                       .arg(Settings::APPLICATION_TITLE,
                           ReadAll(folder.filePath(QStringLiteral("LICENSE"))));
    for (const QString& name : folder.entryList({QStringLiteral("*.txt")}, QDir::Files)) {
        text += QStringLiteral("\n\n%1\n\n%2\n")
                    .arg(name.chopped(4), ReadAll(folder.filePath(name)));
    }
    return text;
}
