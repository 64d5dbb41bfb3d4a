#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/controls/ExecuterView.h"
#include "ui/commands/controls/ReporterView.h"
#include "ui/commands/windows/Prompts.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSaveFile>
#include <QTextDocumentFragment>

namespace host::ui {

namespace {

// Of both

QPlainTextEdit* Field(const Element& element)
{
    return As<QPlainTextEdit>(element);
}

void Select(Edit& edit)
{
    QTextCursor cursor = Field(edit.element)->textCursor();
    const int last = Field(edit.element)->document()->characterCount() - 1;
    cursor.setPosition(qBound(0, edit.Int(0), last));
    cursor.setPosition(qBound(0, edit.Int(1), last), QTextCursor::KeepAnchor);
    Field(edit.element)->setTextCursor(cursor);
}

void SaveText(Edit& edit, const QString& text)
{
    QSaveFile file(edit.Text());
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit())
        edit.error
            = QStringLiteral("Cannot write file \"%1\": %2").arg(edit.Text(), file.errorString());
}

QString SelectedText(const Element& element)
{
    return Field(element)->textCursor().selection().toPlainText();
}

// The reporter

ReporterView* Reporter(const Element& element)
{
    return As<ReporterView>(element);
}

void MakeReporter(Element& element, const Call&)
{
    auto* view = new ReporterView;
    view->setFont(FixedFont());
    element.SetWidget(view);
}

/// The log is the host's, so every view of it is emptied.
void ClearReporter(Edit&)
{
    Engine::Current().history.Clear();
    for (const Element* element :
        InterfaceModel::Current().List(ControlKind, QStringLiteral("cmdScrollFieldReporter")))
        Reporter(*element)->Empty();
}

void SetHiddenLanguage(Edit& edit)
{
    ReporterFilter filter = Reporter(edit.element)->GetFilter();
    filter.hiddenLanguage = edit.Text();
    Reporter(edit.element)->SetFilter(filter);
}

template <bool ReporterFilter::*MEMBER>
void SetSuppressed(Edit& edit)
{
    ReporterFilter filter = Reporter(edit.element)->GetFilter();
    filter.*MEMBER = edit.Bool();
    Reporter(edit.element)->SetFilter(filter);
}

template <bool ReporterFilter::*MEMBER>
Value IsSuppressed(Element& element)
{
    return Reporter(element)->GetFilter().*MEMBER;
}

template <bool EchoState::*MEMBER>
void SetEcho(Edit& edit)
{
    Engine::Current().echo.*MEMBER = edit.Bool();
}

template <bool EchoState::*MEMBER>
Value IsEcho(Element&)
{
    return Engine::Current().echo.*MEMBER;
}

void SaveToShelf(Edit& edit)
{
    QString text = SelectedText(edit.element);
    text.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    text.replace(QLatin1Char('"'), QLatin1String("\\\""));
    text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    const Script save{
        Language::Mel, QStringLiteral("scriptToShelf(\"mel\", \"%1\", 1);").arg(text), nullptr};
    if (!text.isEmpty())
        save.Run();
}

// The executer

ExecuterView* Executer(const Element& element)
{
    return As<ExecuterView>(element);
}

void MakeExecuter(Element& element, const Call&)
{
    auto* view = new ExecuterView;
    view->setFont(FixedFont());
    element.SetWidget(view);
}

QString AskForScript(const Element& element)
{
    const bool python = Executer(element)->GetLanguage() == Language::Python;
    FileQuestion question;
    question.mode = FileQuestion::Mode::ExistingFile;
    question.title = QStringLiteral("Script");
    question.filter = python ? QStringLiteral("Python (*.py);;All files (*)")
                             : QStringLiteral("MEL (*.mel);;All files (*)");
    return AskForFiles(question).files.value(0);
}

void LoadChosen(Edit& edit)
{
    const QPointer<Element> alive(&edit.element);
    const QString path = edit.Bool() ? AskForScript(edit.element) : QString();
    if (alive && !path.isEmpty())
        edit.error = Executer(edit.element)->Load(path);
}

void SourceChosen(Edit& edit)
{
    const Language language = Executer(edit.element)->GetLanguage();
    const QString path = edit.Bool() ? AskForScript(edit.element) : QString();
    if (!path.isEmpty())
        Engine::Current().GetLanguage(language).RunFile(path);
}

void SetSourceType(Edit& edit)
{
    const bool python = edit.Text() == QLatin1String("python");
    if (!python && edit.Text() != QLatin1String("mel"))
        edit.error = QStringLiteral("The source type is mel or python, not '%1'.").arg(edit.Text());
    else
        Executer(edit.element)->SetLanguage(python ? Language::Python : Language::Mel);
}

Value SourceType(Element& element)
{
    const bool python = Executer(element)->GetLanguage() == Language::Python;
    return python ? QStringLiteral("python") : QStringLiteral("mel");
}

Value HasFocus(Element& element)
{
    return element.GetWidget()->hasFocus();
}

Value TextLength(Element& element)
{
    return Field(element)->toPlainText().size();
}

// clang-format off
using Filter = ReporterFilter;

const Property REPORTER[] = {
    {"clear",              ClearReporter, nullptr},
    {"filterSourceType",   SetHiddenLanguage, [](Element& e) -> Value { return Reporter(e)->GetFilter().hiddenLanguage; }},
    {"suppressInfo",       SetSuppressed<&Filter::suppressInfo>, IsSuppressed<&Filter::suppressInfo>},
    {"suppressWarnings",   SetSuppressed<&Filter::suppressWarnings>, IsSuppressed<&Filter::suppressWarnings>},
    {"suppressErrors",     SetSuppressed<&Filter::suppressErrors>, IsSuppressed<&Filter::suppressErrors>},
    {"suppressResults",    SetSuppressed<&Filter::suppressResults>, IsSuppressed<&Filter::suppressResults>},
    {"suppressStackTrace", SetSuppressed<&Filter::suppressStackTrace>, IsSuppressed<&Filter::suppressStackTrace>},
    {"echoAllCommands",    SetEcho<&EchoState::echoAll>, IsEcho<&EchoState::echoAll>},
    {"lineNumbers",        SetEcho<&EchoState::lineNumbers>, IsEcho<&EchoState::lineNumbers>},
    {"stackTrace",         SetEcho<&EchoState::stackTrace>, IsEcho<&EchoState::stackTrace>},
    {"text",               [](Edit& e) { Reporter(e.element)->AppendNote(e.Text()); },
                           [](Element& e) -> Value { return Reporter(e)->HistoryText(); }},
    {"textLength",         nullptr, [](Element& e) -> Value { return Reporter(e)->HistoryText().size(); }},
    {"selectAll",          [](Edit& e) { Field(e.element)->selectAll(); }, nullptr},
    {"select",             Select, nullptr},
    {"copySelection",      [](Edit& e) { Field(e.element)->copy(); }, nullptr},
    {"cutSelection",       [](Edit& e) { Field(e.element)->copy(); }, nullptr}, // The log itself is not for cutting.
    {"pasteSelection",     [](Edit& e) { Reporter(e.element)->AppendNote(QGuiApplication::clipboard()->text()); }, nullptr},
    {"saveSelection",      [](Edit& e) { SaveText(e, SelectedText(e.element)); }, nullptr},
    {"saveSelectionToShelf", SaveToShelf, nullptr},
    {"hasFocus",           nullptr, HasFocus},
};

const Property EXECUTER[] = {
    {"sourceType",    SetSourceType, SourceType},
    {"clear",         [](Edit& e) { if (e.Bool()) Field(e.element)->clear(); }, nullptr},
    {"text",          [](Edit& e) { Field(e.element)->setPlainText(e.Text()); },
                      [](Element& e) -> Value { return Field(e)->toPlainText(); }},
    {"loadFile",      [](Edit& e) { e.error = Executer(e.element)->Load(e.Text()); }, nullptr},
    {"load",          LoadChosen, nullptr},
    {"source",        SourceChosen, nullptr},
    {"appendText",    [](Edit& e) { Field(e.element)->moveCursor(QTextCursor::End); Field(e.element)->insertPlainText(e.Text()); }, nullptr},
    {"insertText",    [](Edit& e) { Field(e.element)->insertPlainText(e.Text()); }, nullptr},
    {"saveFile",      [](Edit& e) { e.error = Executer(e.element)->Save(e.Text()); }, nullptr},
    {"select",        Select, nullptr},
    {"selectAll",     [](Edit& e) { if (e.Bool()) Field(e.element)->selectAll(); }, nullptr},
    {"copySelection", [](Edit& e) { if (e.Bool()) Field(e.element)->copy(); }, nullptr},
    {"undo",          [](Edit& e) { if (e.Bool()) Field(e.element)->undo(); }, nullptr},
    {"redo",          [](Edit& e) { if (e.Bool()) Field(e.element)->redo(); }, nullptr},
    {"execute",       [](Edit& e) { if (e.Bool()) Executer(e.element)->Execute(); }, nullptr},
    {"executeAll",    [](Edit& e) { if (e.Bool()) Executer(e.element)->ExecuteAll(); }, nullptr},
    {"filename",      nullptr, [](Element& e) -> Value { return Executer(e)->GetFileName(); }},
    {"selectedText",  nullptr, [](Element& e) -> Value { return SelectedText(e); }},
    {"textLength",    nullptr, TextLength},
    {"hasFocus",      nullptr, HasFocus},
};

const ControlRow ROWS[] = {
    {"cmdScrollFieldReporter", ControlKind, MakeReporter, REPORTER,
        "clear/clr - ce; copySelection/cp - ce; cutSelection/ct - ce; echoAllCommands/eac B cqe; filterSourceType/fst str cqe;"
        "hasFocus/hf - q; lineNumbers/ln B cqe; pasteSelection/pst - ce; receiveFocusCommand/rfc script ce; saveSelection/sv str ce; saveSelectionToShelf/svs - ce;"
        "select/sl int int ce; selectAll/sla - ce; stackTrace/st B cqe; suppressErrors/se B cqe; suppressInfo/si B cqe;"
        "suppressResults/sr B cqe; suppressStackTrace/sst B cqe; suppressWarnings/sw B cqe; text/t str cqe; textLength/tl - q;"},
    {"cmdScrollFieldExecuter", ControlKind, MakeExecuter, EXECUTER,
        "appendText/at str ce; clear/clr B ce; copySelection/cp B ce; execute/exc B ce; executeAll/exa B ce; filename/fn - q;"
        "hasFocus/hf - q; insertText/it str ce; load/ld B ce; loadFile/ldf str ce; redo/rd B ce; saveFile/svf str ce;"
        "select/sl int int ce; selectAll/sla B ce; selectedText/slt - q; source/src B ce; sourceType/st str cq; text/t str cqe;"
        "textLength/tl - q; undo/ud B ce;"},
};
// clang-format on

} // namespace

void RegisterScriptFieldCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
