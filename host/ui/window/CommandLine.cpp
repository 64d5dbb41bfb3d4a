#include "ui/window/CommandLine.h"

#include "engine/Engine.h"
#include "ui/window/HistoryLineEdit.h"
#include "ui/window/HostColors.h"
#include "ui/window/HostIcons.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QMutex>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>

namespace host::ui {

namespace {

constexpr int HEIGHT = 28;
constexpr int FIELD_HEIGHT = 20;
constexpr int BUTTON_WIDTH = 46;
constexpr int MAXIMUM_SHOWN = 2000; ///< characters of a message

QFont FieldFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setFamily(QStringLiteral("Liberation Mono"));
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(12);
    return font;
}

/// The last line that says something, as one line.
QString LastLine(const QString& text)
{
    int end = text.size();
    while (end > 0 && text.at(end - 1).isSpace())
        --end;
    const int start = text.lastIndexOf(QLatin1Char('\n'), qMax(0, end - 1)) + 1;
    return text.mid(qMin(start, end), qMin(end - start, MAXIMUM_SHOWN));
}

QString ShownText(const Message& message)
{
    switch (message.type) {
    case MessageType::Result:
        return QStringLiteral("Result: ") + message.text.left(MAXIMUM_SHOWN).simplified();
    case MessageType::Warning:
        return QStringLiteral("Warning: ") + message.text.left(MAXIMUM_SHOWN).simplified();
    case MessageType::Error:
        return QStringLiteral("Error: ") + message.text.section(QLatin1Char('\n'), 0, 0);
    default: return LastLine(message.text);
    }
}

} // namespace

/// Shared with the listener, which may be at work on another thread while the widget goes.
struct CommandLine::LastMessage
{
    QMutex mutex;
    CommandLine* owner = nullptr;
    Message message;
    bool updateWaits = false;

    /// A burst of messages costs one update of the field.
    void Take(const Message& newest)
    {
        const QMutexLocker lock(&mutex);
        if (!owner || newest.type == MessageType::History || newest.type == MessageType::StackTrace
            || newest.text.trimmed().isEmpty()) {
            return;
        }
        message = newest;
        if (updateWaits)
            return;
        updateWaits = true;
        QMetaObject::invokeMethod(owner, &CommandLine::ShowLastMessage, Qt::QueuedConnection);
    }
};

CommandLine::CommandLine(Engine& engine, QWidget* parent)
    : QWidget(parent)
    , m_engine(engine)
    , m_lastMessage(std::make_shared<LastMessage>())
{
    setObjectName(QStringLiteral("commandLine"));
    setFixedHeight(HEIGHT);
    CreateFields();
    m_lastMessage->owner = this;
    m_displayId = engine.output.AddDisplay(
        [last = m_lastMessage](const Message& message) { last->Take(message); });
}

CommandLine::~CommandLine()
{
    m_engine.output.Remove(m_displayId);
    const QMutexLocker lock(&m_lastMessage->mutex);
    m_lastMessage->owner = nullptr;
}

void CommandLine::CreateFields()
{
    m_languageButton = new QPushButton(this);
    m_languageButton->setObjectName(QStringLiteral("commandLineLanguage"));
    m_languageButton->setFixedSize(BUTTON_WIDTH, FIELD_HEIGHT);
    m_languageButton->setProperty("borderless", true);
    QFont buttonFont = m_languageButton->font();
    buttonFont.setPixelSize(11);
    buttonFont.setWeight(QFont::DemiBold);
    m_languageButton->setFont(buttonFont);
    m_languageButton->setToolTip(tr("Switch between MEL and Python"));
    m_languageButton->setStatusTip(m_languageButton->toolTip());
    m_input = new HistoryLineEdit(this);
    m_input->setObjectName(QStringLiteral("commandLineField"));
    m_result = new QLineEdit(this);
    m_result->setObjectName(QStringLiteral("commandLineResult"));
    m_result->setReadOnly(true);
    m_result->setAccessibleName(tr("Result"));
    m_result->setFocusPolicy(Qt::ClickFocus);
    for (QLineEdit* field : {static_cast<QLineEdit*>(m_input), m_result}) {
        field->setFont(FieldFont());
        field->setFrame(false);
        field->setTextMargins(6, 0, 6, 0);
        field->setFixedHeight(FIELD_HEIGHT);
    }
    auto* editorButton = new QToolButton(this);
    editorButton->setObjectName(QStringLiteral("commandLineScriptEditor"));
    editorButton->setAutoRaise(true);
    editorButton->setIcon(HostIcon(QStringLiteral("host_script_editor")));
    editorButton->setIconSize({16, 16});
    editorButton->setToolTip(tr("Script Editor"));
    editorButton->setAccessibleName(tr("Script Editor"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 1, 8, 0);
    layout->setSpacing(8);
    layout->addWidget(m_languageButton);
    layout->addWidget(m_input, 1);
    layout->addWidget(m_result, 1);
    layout->addWidget(editorButton);
    connect(m_languageButton, &QPushButton::clicked, this, [this] {
        SetLanguage(m_language == Language::Mel ? Language::Python : Language::Mel);
        m_input->setFocus();
    });
    connect(m_input, &QLineEdit::returnPressed, this, &CommandLine::OnReturnPressed);
    connect(editorButton, &QToolButton::clicked, this, &CommandLine::ScriptEditorRequested);
    SetLanguage(Language::Mel);
}

void CommandLine::SetLanguage(Language language)
{
    m_language = language;
    const QString name
        = language == Language::Mel ? QStringLiteral("MEL") : QStringLiteral("Python");
    m_languageButton->setText(name);
    m_languageButton->setAccessibleName(tr("Command line language: %1").arg(name));
    m_input->setAccessibleName(tr("%1 command").arg(name));
    m_input->setStatusTip(tr("Enter a %1 command; Up and Down bring earlier ones back").arg(name));
}

void CommandLine::OnReturnPressed()
{
    const QString text = m_input->text();
    if (text.trimmed().isEmpty())
        return;
    m_input->Remember(text);
    m_input->selectAll();
    m_result->clear();
    m_engine.Execute(m_language, text, true);
}

void CommandLine::ShowLastMessage()
{
    Message message;
    {
        const QMutexLocker lock(&m_lastMessage->mutex);
        m_lastMessage->updateWaits = false;
        message = m_lastMessage->message;
    }
    QPalette palette = m_input->palette();
    if (message.type == MessageType::Error) {
        palette.setColor(QPalette::Base, colors::FIELD_ERROR);
        palette.setColor(QPalette::Text, colors::TEXT_ERROR);
    } else if (message.type == MessageType::Warning) {
        palette.setColor(QPalette::Text, colors::TEXT_WARNING);
    }
    m_result->setPalette(palette);
    m_result->setText(ShownText(message));
    m_result->setCursorPosition(0);
    m_result->setToolTip(m_result->text());
}

} // namespace host::ui
