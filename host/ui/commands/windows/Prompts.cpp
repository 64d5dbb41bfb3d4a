#include "ui/commands/windows/Prompts.h"

#include "engine/Engine.h"

#include <QColorDialog>
#include <QDialog>
#include <QFileDialog>
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
FileFunction fileReplacement;
ColorFunction colorReplacement;

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

/// In the order of FileQuestion::Mode.
const QFileDialog::FileMode FILE_MODES[] = {QFileDialog::AnyFile, QFileDialog::ExistingFile,
    QFileDialog::Directory, QFileDialog::ExistingFiles};

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
            m_field->setAccessibleName(m_prompt.message);
            rows->addWidget(m_field);
        } else {
            m_line = new QLineEdit(m_prompt.text, this);
            m_line->setAccessibleName(m_prompt.message);
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

void SetColorFunction(ColorFunction function)
{
    colorReplacement = std::move(function);
}

std::optional<QColor> AskForColor(const QColor& color)
{
    if (colorReplacement)
        return colorReplacement(color);
    const Engine& engine = Engine::Current();
    if (engine.IsBatch())
        return std::nullopt;
    QColorDialog dialog(color, engine.ui ? engine.ui->MainWindow() : nullptr);
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.selectedColor();
}

void SetFileFunction(FileFunction function)
{
    fileReplacement = std::move(function);
}

FileAnswer AskForFiles(const FileQuestion& question)
{
    if (fileReplacement)
        return fileReplacement(question);
    const Engine& engine = Engine::Current();
    if (engine.IsBatch())
        return {};
    QFileDialog dialog(engine.ui ? engine.ui->MainWindow() : nullptr, question.title);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    const QFileInfo start(question.folder);
    if (start.isDir() || question.folder.isEmpty()) {
        dialog.setDirectory(question.folder);
    } else {
        dialog.setDirectory(start.path());
        dialog.selectFile(start.fileName());
    }
    const bool saves = question.mode == FileQuestion::Mode::AnyFile;
    dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(FILE_MODES[static_cast<int>(question.mode)]);
    if (question.mode == FileQuestion::Mode::Folder)
        dialog.setOption(QFileDialog::ShowDirsOnly);
    if (!question.filter.isEmpty())
        dialog.setNameFilters(question.filter.split(QLatin1String(";;")));
    if (!question.selectedFilter.isEmpty())
        dialog.selectNameFilter(question.selectedFilter);
    if (!question.accept.isEmpty())
        dialog.setLabelText(QFileDialog::Accept, question.accept);
    if (dialog.exec() != QDialog::Accepted)
        return {{}, dialog.selectedNameFilter()};
    return {dialog.selectedFiles(), dialog.selectedNameFilter()};
}

} // namespace host::ui
