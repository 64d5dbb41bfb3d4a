#include "settings/ColorSettings.h"

#include "settings/SettingsFixture.h"
#include "support/TestMain.h"

#include <QSettings>
#include <QtTest>

#include <memory>

/// The strings of the colours file and what reading them changes.
class ColorSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void FormatStringIsAllOrNothing_data();
    void FormatStringIsAllOrNothing();
    void ChangedRoleIsReadBackAndHasItsDefault();
    void RulesComeInTheOrderOfTheirKeys();
    void OddTextsOfRulesComeBack_data();
    void OddTextsOfRulesComeBack();
    void WithoutRulesTheBuiltInOnesAreThere();
    void UnknownRolesAreHarmless();

private:
    std::unique_ptr<SettingsFixture> m_files;
};

void ColorSettingsTest::init()
{
    m_files = std::make_unique<SettingsFixture>();
    ColorSettings::ReadUserConfig();
}

void ColorSettingsTest::FormatStringIsAllOrNothing_data()
{
    Columns<QString, QString>("text", "then");
    const QString before = "4278190335,0,50,0,0"; // opaque blue
    Row("all fields", "4294901760,4278255360,75,1,1", "4294901760,4278255360,75,1,1");
    Row("zero keeps the colour", "0,0,50,0,0", before);
    Row("four fields", "4294901760,0,75,1", before);
    Row("empty field", "4294901760,,75,1,1", before);
    Row("colour that is none", "red,0,75,0,0", "4278190335,0,75,0,0");
    Row("nothing", "", before);
}

void ColorSettingsTest::FormatStringIsAllOrNothing()
{
    QFETCH(QString, text);
    QTextCharFormat format;
    format.setForeground(Qt::blue);
    ColorSettings::LoadFormatString(format, text);
    QTEST(ColorSettings::GetFormatString(format), "then");
}

void ColorSettingsTest::ChangedRoleIsReadBackAndHasItsDefault()
{
    QTextCharFormat format = ColorSettings::GetOutputFormat(ColorSettings::PLAIN_TEXT, false);
    format.setForeground(Qt::red);
    ColorSettings::SetOutputFormat(ColorSettings::PLAIN_TEXT, format);
    ColorSettings::WriteUserConfig();
    ColorSettings::Initialize();
    ColorSettings::ReadUserConfig();
    const auto color = [](bool isDefault) {
        return ColorSettings::GetOutputFormat(ColorSettings::PLAIN_TEXT, isDefault)
            .foreground()
            .color();
    };
    QCOMPARE(color(false), QColor(Qt::red));
    QCOMPARE(color(true), QColor("#d4d4d4"));
    QCOMPARE(
        ColorSettings::GetCodeEditorFormat(ColorSettings::PLAIN_TEXT, false).foreground().color(),
        QColor("#d4d4d4"));
}

void ColorSettingsTest::RulesComeInTheOrderOfTheirKeys()
{
    ColorSettings::outputUserDefinedSelections.clear();
    for (int i = 0; i < 12; ++i) {
        ColorSettings::outputUserDefinedSelections += ExtraSelectionProperties(
            QString::number(i), Qt::red, QColor(), "a;;;b,c", false, true, i % 2 == 0);
    }
    ColorSettings::WriteUserConfig();
    ColorSettings::ReadUserConfig();
    QStringList names;
    for (const ExtraSelectionProperties& rule : ColorSettings::outputUserDefinedSelections) {
        names += rule.name;
        QCOMPARE(rule.pattern, "a;;;b,c");
        QCOMPARE(rule.enabled, rule.name.toInt() % 2 == 0);
        QVERIFY(rule.hasForeground && !rule.hasBackground && rule.wholeLine);
    }
    QCOMPARE(names, QStringList({"0", "1", "10", "11", "2", "3", "4", "5", "6", "7", "8", "9"}));
    // A shorter list leaves nothing behind.
    ColorSettings::outputUserDefinedSelections
        = ColorSettings::outputUserDefinedSelections.mid(0, 1);
    ColorSettings::WriteUserConfig();
    ColorSettings::ReadUserConfig();
    QCOMPARE(ColorSettings::outputUserDefinedSelections.size(), 1);
}

void ColorSettingsTest::OddTextsOfRulesComeBack_data()
{
    Columns<QString>("text");
    const QStringList texts = {";", ";;", ";;;", ";;;;", "a;", ";a", "a;;;b", "x;;;1;;;2;;;1", "\"",
        "\"a\"", "'", "\\", "\\\\", "a\\", "^\\d+\\\\$", "a,b", ",", " ", " a ", "\t", "\n",
        "a\nb\n", "\r\n", "%20", "%1", "@", "@Invalid()", "@@x", "=", "[a]", "#", "\u00e9\u4e2d",
        "\U0001F642", "\U0001F642abc0", "\u00e9f", "0", "1", "Not Set", "\u2028", "e\u0301"};
    for (const QString& text : texts)
        Row(qPrintable(
                QString::number(texts.indexOf(text)) + ": " + text.toUtf8().toPercentEncoding()),
            text);
    Row("null character", "a" + QString(QChar(0)) + "b");
    Row("long", QString(100000, 'x'));
}

/// In the name as well as in the pattern, of a new file that nobody has in a cache.
void ColorSettingsTest::OddTextsOfRulesComeBack()
{
    QFETCH(QString, text);
    ColorSettings::outputUserDefinedSelections = {{text, Qt::red, QColor(), "x", true, false, true},
        {"n", QColor(), Qt::blue, text, false, true, false},
        {text, Qt::red, Qt::blue, text, true, true, true}};
    const auto rules = ColorSettings::outputUserDefinedSelections;
    ColorSettings::WriteUserConfig();
    // Another name is another file to the cache of what was read.
    const QString path = ColorSettings::GetUserConfigPath();
    QVERIFY(QFile::exists(path));
    const QString copy = path + ".copy.ini";
    QFile::remove(copy);
    QVERIFY(QFile::copy(path, copy));
    const QSettings ini(copy, QSettings::IniFormat);
    for (int i = 0; i < rules.size(); ++i) {
        const QString stored = ini.value("customhighlighting/" + QString::number(i)).toString();
        const ExtraSelectionProperties read = ColorSettings::LoadExtraSelectionString(stored);
        QCOMPARE(read.name, rules[i].name);
        QCOMPARE(read.pattern, rules[i].pattern);
        QCOMPARE(ColorSettings::GetExtraSelectionString(read),
            ColorSettings::GetExtraSelectionString(rules[i]));
    }
}

void ColorSettingsTest::WithoutRulesTheBuiltInOnesAreThere()
{
    ColorSettings::outputUserDefinedSelections.clear();
    ColorSettings::WriteUserConfig();
    ColorSettings::ReadUserConfig();
    QCOMPARE(ColorSettings::outputUserDefinedSelections.size(), 6);
    QCOMPARE(ColorSettings::outputUserDefinedSelections.first().pattern, "^(\\# Error:)");
}

void ColorSettingsTest::UnknownRolesAreHarmless()
{
    ColorSettings::SetOutputFormat("nobody", QTextCharFormat());
    QVERIFY(!ColorSettings::GetCodeEditorFormatPtr("nobody", false));
    QVERIFY(!ColorSettings::GetOutputFormat("nobody", false).hasProperty(QTextFormat::FontWeight));
    QCOMPARE(ColorSettings::GetOutputHighlightProperties("nobody").label, "Not Set");
}

TE2_TEST(ColorSettingsTest)
#include "ColorSettingsTest.moc"
