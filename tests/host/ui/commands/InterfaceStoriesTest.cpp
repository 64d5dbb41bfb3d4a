#include "host/ui/UiFixture.h"
#include "support/Story.h"
#include "support/TestMain.h"
#include "ui/commands/controls/FieldGroup.h"
#include "ui/commands/controls/RangeSlider.h"
#include "ui/commands/windows/Prompts.h"

#include <QAbstractButton>
#include <QTableWidget>
#include <QTreeWidget>
#include <QtTest>

using namespace host;

/// The stories of the data folder, each with a host of its own that has a window "w" with a column
/// "c". Besides MEL, a line may do what a person does:
///
///     @click NAME [N]      presses the control, or the Nth button inside of it
///     @type NAME TEXT      replaces the text of the field, or of the group's first field
///     @key NAME KEY        presses a key in the control, or in the field that has its focus
///     @drag NAME N...      drags the slider over the numbers and lets it go
///     @shows NAME [N]      what the control, or the Nth field of the group, shows
///     @grey NAME [N]       1 when nobody can use it
///     @idle                the host does what waits until it is idle
///     @tree NAME           the rows of an outliner, children behind a "/"
///     @open NAME ROW       opens a row of it; @mark selects one, @marked tells which are
///     @cell NAME R C TEXT  types into a cell of a table
///     @access NAME         what assistive programs are told of the control
///     @escape NAME         wants the script to stop; 1 when it goes on instead
///     @until MEL           1 as soon as the text answers that
///     @asked               the kind, title, filter and folder of the last question for files
///
/// Who is asked for files answers "chosen" and "filter"; who is asked for a colour, green.
class InterfaceStoriesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void ComesTrue_data() { Story::AddRows(TEST_DATA_DIR); }
    void ComesTrue();

private:
    QString Run(const QString& text);
    void Click(const QString& name, int number);
    void Drag(const QString& name, const QStringList& numbers);
    QString UseTree(const QString& word, QTreeWidget* tree, const QString& row);
    QWidget* Focused(const QString& name);
    QWidget* Field(const QString& name, int number);

    std::unique_ptr<UiFixture> m_host;
    QString m_asked;
};

void InterfaceStoriesTest::cleanup()
{
    m_host.reset();
    ui::SetFileFunction({});
    ui::SetColorFunction({});
}

void InterfaceStoriesTest::ComesTrue()
{
    QFETCH(QStringList, steps);
    m_host = std::make_unique<UiFixture>();
    ui::SetFileFunction([this](const ui::FileQuestion& question) {
        const QStringList modes{"AnyFile", "ExistingFile", "Folder", "ExistingFiles"};
        m_asked = QStringList{modes.at(static_cast<int>(question.mode)), question.title,
            question.filter, question.folder}
                      .join('|');
        return ui::FileAnswer{{"chosen"}, "filter"};
    });
    ui::SetColorFunction([](const QColor&) { return QColor(Qt::green); });
    m_host->Run("window -widthHeight 400 300 w; columnLayout -adj 1 c");
    const QString fault = Story::FaultOf(
        steps, [this](const QString& text) { return Run(text); },
        [this] {
            const QString printed = m_host->TakePrinted();
            return printed.isEmpty() ? QStringList() : QStringList{printed};
        });
    QCOMPARE(fault, "");
}

QString InterfaceStoriesTest::Run(const QString& text)
{
    const QString word = text.section(' ', 0, 0);
    const QString name = text.section(' ', 1, 1);
    const QString rest = text.section(' ', 2);
    if (!word.startsWith('@'))
        return m_host->Run(text);
    if (word == "@until")
        return QTest::qWaitFor([&] { return Run(text.section(' ', 1)) == "1"; }) ? "1" : "0";
    if (word == "@asked")
        return m_asked;
    if (word == "@idle") {
        m_host->GetEngine().idle.Drain();
        return QString();
    }
    if (!m_host->Find(name))
        return "error: no " + name;
    if (auto* tree = m_host->Widget<QTreeWidget>(name);
        tree && QStringList{"@tree", "@open", "@mark", "@marked"}.contains(word))
        return UseTree(word, tree, rest);
    if (word == "@click") {
        Click(name, qMax(1, rest.toInt()));
    } else if (word == "@type") {
        QTest::keySequence(Focused(name), QKeySequence::SelectAll);
        QTest::keyClicks(Focused(name), rest);
        QTest::keyClick(Focused(name), Qt::Key_Return);
    } else if (word == "@key") {
        QTest::keySequence(Focused(name), QKeySequence(rest));
    } else if (word == "@cell") {
        m_host->Widget<QTableWidget>(name)
            ->item(rest.section(' ', 0, 0).toInt() - 1, rest.section(' ', 1, 1).toInt() - 1)
            ->setText(rest.section(' ', 2));
    } else if (word == "@drag") {
        Drag(name, rest.split(' '));
    } else if (word == "@shows") {
        const QWidget* field = Field(name, qMax(1, rest.toInt()));
        return field->property(field->inherits("QComboBox") ? "currentText" : "text").toString();
    } else if (word == "@grey") {
        return Field(name, qMax(1, rest.toInt()))->isEnabled() ? "0" : "1";
    } else if (word == "@access") {
        return Focused(name)->accessibleName();
    } else if (word == "@escape") {
        const auto cancel = m_host->GetEngine().interrupt.cancel;
        return cancel && cancel() ? "1" : "0";
    } else {
        return "error: " + word;
    }
    return QString();
}

void InterfaceStoriesTest::Click(const QString& name, int number)
{
    QWidget* widget = m_host->Find(name)->GetWidget();
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (!button)
        button = widget->findChildren<QAbstractButton*>().value(number - 1);
    button->click();
}

namespace {

QString TextOf(const QTreeWidgetItem* item)
{
    QStringList children;
    for (int i = 0; i < item->childCount(); ++i)
        children += TextOf(item->child(i));
    return children.isEmpty() ? item->text(0) : item->text(0) + '/' + children.join(' ');
}

} // namespace

QString InterfaceStoriesTest::UseTree(const QString& word, QTreeWidget* tree, const QString& row)
{
    QStringList texts;
    if (word == "@tree") {
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            texts += TextOf(tree->topLevelItem(i));
    } else if (word == "@marked") {
        for (const QTreeWidgetItem* item : tree->selectedItems())
            texts += item->text(0);
    } else if (const auto found = tree->findItems(row, Qt::MatchRecursive); !found.isEmpty()) {
        if (word == "@open")
            found.first()->setExpanded(true);
        else
            tree->setCurrentItem(found.first());
    } else {
        return "error: no row " + row;
    }
    return texts.join(' ');
}

void InterfaceStoriesTest::Drag(const QString& name, const QStringList& numbers)
{
    auto* slider = m_host->Widget<ui::RangeSlider>(name);
    slider->setSliderDown(true);
    for (const QString& number : numbers) {
        const double part
            = (number.toDouble() - slider->GetLeast()) / (slider->GetMost() - slider->GetLeast());
        slider->setValue(qRound(part * slider->maximum()));
    }
    slider->setSliderDown(false);
}

/// The control itself unless it is a group.
QWidget* InterfaceStoriesTest::Field(const QString& name, int number)
{
    const auto* group = m_host->Widget<ui::FieldGroup>(name);
    return group ? group->Field<QWidget>(number - 1) : m_host->Find(name)->GetWidget();
}

QWidget* InterfaceStoriesTest::Focused(const QString& name)
{
    QWidget* widget = m_host->Find(name)->GetWidget();
    return widget->focusProxy() ? widget->focusProxy() : widget;
}

TE2_TEST(InterfaceStoriesTest)
#include "InterfaceStoriesTest.moc"
