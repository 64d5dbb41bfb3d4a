#include "engine/Engine.h"
#include "ui/commands/Tables.h"

#include <QLabel>
#include <QProgressDialog>
#include <QTimer>

#include <memory>

namespace host::ui {

namespace {

QWidget* MainWindow()
{
    const UserInterface* interface = Engine::Current().ui;
    return interface ? interface->MainWindow() : nullptr;
}

// The progress window

/// The one progress window; null while none is open.
std::unique_ptr<QProgressDialog>& Progress()
{
    static std::unique_ptr<QProgressDialog> window;
    return window;
}

void ApplyProgress(const Call& call)
{
    QProgressDialog& window = *Progress();
    if (call.Has("title"))
        window.setWindowTitle(call.Text("title"));
    if (call.Has("status"))
        window.setLabelText(call.Text("status"));
    if (call.Has("minValue"))
        window.setMinimum(call.Int("minValue"));
    if (call.Has("maxValue"))
        window.setMaximum(call.Int("maxValue"));
    if (call.Has("isInterruptable") && !call.Bool("isInterruptable"))
        window.setCancelButton(nullptr);
    if (call.Has("progress"))
        window.setValue(call.Int("progress"));
    if (call.Has("step"))
        window.setValue(window.value() + call.Int("step"));
}

Value ProgressValue(const Call& call)
{
    const QProgressDialog& window = *Progress();
    if (call.Has("isCancelled"))
        return window.wasCanceled();
    if (call.Has("progress"))
        return window.value();
    if (call.Has("minValue"))
        return window.minimum();
    if (call.Has("maxValue"))
        return window.maximum();
    if (call.Has("title"))
        return window.windowTitle();
    return window.labelText();
}

Outcome ProgressWindow(Call& call)
{
    if (call.Has("endProgress")) {
        Progress().reset();
        return true;
    }
    if (call.IsCreate()) {
        if (Progress() || Engine::Current().IsBatch())
            return false; // Somebody else's is open.
        Progress() = std::make_unique<QProgressDialog>(MainWindow());
        Progress()->setObjectName(QStringLiteral("progressWindow"));
        Progress()->setAutoClose(false);
        Progress()->setAutoReset(false);
        Progress()->setMinimumDuration(0);
        Progress()->setRange(0, 100);
        Progress()->setValue(0);
        ApplyProgress(call);
        Progress()->show();
        return true;
    }
    if (!Progress())
        return Error{QStringLiteral("No progress window is open.")};
    if (call.IsQuery())
        return ProgressValue(call);
    ApplyProgress(call);
    return true;
}

// Messages over the view

constexpr int MESSAGE_STAY_MS = 1500;
constexpr int MESSAGE_FADE_MS = 300;
constexpr int MESSAGE_MARGIN = 48;

struct PositionRow
{
    const char* word;
    double x; ///< 0 left to 1 right
    double y; ///< 0 top to 1 bottom
};

const PositionRow POSITIONS[] = {
    {"topLeft", 0, 0},
    {"topCenter", 0.5, 0},
    {"topRight", 1, 0},
    {"midLeft", 0, 0.5},
    {"midCenter", 0.5, 0.5},
    {"midCenterTop", 0.5, 0.35},
    {"midCenterBot", 0.5, 0.65},
    {"midRight", 1, 0.5},
    {"botLeft", 0, 1},
    {"botCenter", 0.5, 1},
    {"botRight", 1, 1},
};

const QString MESSAGE_NAME = QStringLiteral("inViewMessage");

QVector<QLabel*> ShownMessages()
{
    if (!MainWindow())
        return {};
    return MainWindow()->findChildren<QLabel*>(MESSAGE_NAME).toVector();
}

void Hide(QLabel* label)
{
    label->setObjectName({});
    label->hide();
    label->deleteLater();
}

void ShowMessage(const QString& text, const QString& position, int milliseconds)
{
    QWidget* window = MainWindow();
    if (!window)
        return;
    for (QLabel* label : ShownMessages())
        Hide(label);
    auto* label = new QLabel(text, window);
    label->setObjectName(MESSAGE_NAME);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setAutoFillBackground(true);
    label->setMargin(10);
    label->adjustSize();
    PositionRow place{nullptr, 0.5, 0};
    for (const PositionRow& row : POSITIONS) {
        if (position == QLatin1String(row.word))
            place = row;
    }
    const QSize free
        = window->size() - label->size() - QSize(2 * MESSAGE_MARGIN, 2 * MESSAGE_MARGIN);
    label->move(MESSAGE_MARGIN + qRound(free.width() * place.x),
        MESSAGE_MARGIN + qRound(free.height() * place.y));
    label->show();
    label->raise();
    if (milliseconds > 0)
        QTimer::singleShot(milliseconds, label, [label] { Hide(label); });
}

Outcome InViewMessage(Call& call)
{
    if (call.Has("clear") || call.Has("hide")) {
        for (QLabel* label : ShownMessages())
            Hide(label);
        return {};
    }
    QString text = call.Text("message");
    for (const char* flag : {"assistMessage", "statusMessage"}) {
        if (call.Has(flag))
            text = call.Text(flag);
    }
    if (text.isEmpty())
        return {};
    const int stay = call.Has("fadeStayTime") ? qMax(0, call.Int("fadeStayTime")) : MESSAGE_STAY_MS;
    ShowMessage(text, call.Text("position"), call.Has("fade") ? stay + MESSAGE_FADE_MS : 0);
    return {};
}

Outcome HeadsUpMessage(Call& call)
{
    const double seconds = call.Has("time") ? qMax(0.1, call.Float("time")) : 1.0;
    ShowMessage(call.ObjectText(), QStringLiteral("midCenter"), qRound(seconds * 1000));
    return {};
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"progressWindow", "bool", "QE", "",
        "endProgress/ep - c; isCancelled/ic - q; isInterruptable/ii B cqe; maxValue/max int cqe; minValue/min int cqe;"
        "progress/pr int cqe; status/st str cqe; step/s int e; title/t str cqe", ProgressWindow},
    {"inViewMessage", "none", "", "",
        "alpha/a float c; assistMessage/amg str c; backColor/bkc int c; clear/cl str c; clickKill/ck - c; dragKill/dk - c; fade/f - c; fontSize/fts int c; fadeInTime/fit int c; fadeOutTime/fot int c; fadeStayTime/fst int c;"
        "hide/hd - c; message/msg str c; position/pos str c; show/sh - c; statusMessage/smg str c", InViewMessage},
    {"headsUpMessage", "none", "", "String",
        "horizontalOffset/ho int c; object/o str c; selection/s - c; time/t float c; uvTextureEditor/uve - c;"
        "verticalOffset/vo int c; viewport/vp - c", HeadsUpMessage},
};
// clang-format on

} // namespace

void RegisterMessageCommands(CommandRegistry& commands)
{
    commands.Register(COMMANDS);
}

} // namespace host::ui
