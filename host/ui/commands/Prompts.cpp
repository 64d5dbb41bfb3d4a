#include "ui/commands/Prompts.h"

#include "engine/Engine.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>

namespace host::ui {

namespace {

constexpr int ICON_PIXELS = 32;

PromptFunction replacement;

struct IconRow
{
    const char* word;
    QStyle::StandardPixmap picture;
};

const IconRow ICONS[] = {
    {"information", QStyle::SP_MessageBoxInformation},
    {"warning", QStyle::SP_MessageBoxWarning},
    {"critical", QStyle::SP_MessageBoxCritical},
    {"question", QStyle::SP_MessageBoxQuestion},
};

/// The dialog that asks. Its result is the index of the button plus one; 0 when it was closed.
class PromptDialog : public QDialog
{
public:
    PromptDialog(const Prompt& prompt, QWidget* parent)
        : QDialog(parent)
        , m_prompt(prompt)
    {
        setObjectName(QStringLiteral("promptDialog"));
        setWindowTitle(prompt.title);
        auto* rows = new QVBoxLayout(this);
        rows->addLayout(MakeMessage());
        AddField(rows);
        rows->addLayout(MakeButtons());
    }

    PromptAnswer Answer(int result) const
    {
        PromptAnswer answer{m_prompt.dismissText, Text()};
        if (result > 0)
            answer.button = m_prompt.buttons.at(result - 1);
        return answer;
    }

    void reject() override
    {
        const int index = m_prompt.buttons.indexOf(m_prompt.cancelButton);
        done(index + 1);
    }

private:
    QLayout* MakeMessage()
    {
        auto* row = new QHBoxLayout;
        for (const IconRow& icon : ICONS) {
            if (m_prompt.icon != QLatin1String(icon.word))
                continue;
            auto* picture = new QLabel(this);
            picture->setPixmap(style()->standardIcon(icon.picture).pixmap(ICON_PIXELS));
            row->addWidget(picture, 0, Qt::AlignTop);
        }
        auto* message = new QLabel(m_prompt.message, this);
        message->setTextInteractionFlags(Qt::TextSelectableByMouse);
        row->addWidget(message, 1);
        return row;
    }

    void AddField(QVBoxLayout* rows)
    {
        if (!m_prompt.hasText)
            return;
        if (m_prompt.multiLine) {
            m_field = new QPlainTextEdit(m_prompt.text, this);
            rows->addWidget(m_field);
        } else {
            m_line = new QLineEdit(m_prompt.text, this);
            m_line->selectAll();
            rows->addWidget(m_line);
        }
    }

    QLayout* MakeButtons()
    {
        auto* row = new QHBoxLayout;
        row->addStretch(1);
        for (int i = 0; i < m_prompt.buttons.size(); ++i) {
            auto* button = new QPushButton(m_prompt.buttons.at(i), this);
            button->setDefault(m_prompt.buttons.at(i) == m_prompt.defaultButton);
            button->setAutoDefault(false);
            connect(button, &QPushButton::clicked, this, [this, i] { done(i + 1); });
            row->addWidget(button);
        }
        return row;
    }

    QString Text() const
    {
        if (m_line)
            return m_line->text();
        return m_field ? m_field->toPlainText() : QString();
    }

    const Prompt m_prompt;
    QLineEdit* m_line = nullptr;
    QPlainTextEdit* m_field = nullptr;
};

} // namespace

void SetPromptFunction(PromptFunction function)
{
    replacement = std::move(function);
}

PromptAnswer AnswerWithDefault(const Prompt& prompt)
{
    const bool known = prompt.buttons.contains(prompt.defaultButton);
    return {known ? prompt.defaultButton : prompt.buttons.value(0), prompt.text};
}

PromptAnswer Ask(const Prompt& prompt)
{
    if (replacement)
        return replacement(prompt);
    const Engine& engine = Engine::Current();
    if (engine.IsBatch())
        return AnswerWithDefault(prompt);
    PromptDialog dialog(prompt, engine.ui ? engine.ui->MainWindow() : nullptr);
    const int result = dialog.exec();
    return dialog.Answer(result);
}

} // namespace host::ui
