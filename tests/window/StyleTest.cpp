#include "editor/FindReplaceWidget.h"
#include "settings/ColorSettings.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "support/TestMain.h"
#include "views/SubViewHeader.h"
#include "views/quickhelp/QuickHelpView.h"
#include "window/PanelGroup.h"
#include "window/WindowFixture.h"
#include "window/chrome/ActivityBar.h"
#include "window/chrome/GrooveSplitter.h"
#include "window/chrome/StatusBar.h"
#include "window/chrome/TarnwickStyle.h"
#include "window/chrome/Theme.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSplitterHandle>
#include <QVBoxLayout>
#include <QtTest>

/// The style and the sheet together, as the window sets them.
class StyleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_host = std::make_unique<WindowFixture>(); }
    void cleanupTestCase() { m_host.reset(); }
    void cleanup();
    void MenusFollowTheScale_data();
    void MenusFollowTheScale();
    void WidgetsFollowTheScale_data();
    void WidgetsFollowTheScale();
    void FocusedFieldsHaveAHalo_data();
    void FocusedFieldsHaveAHalo();
    void ShortcutsEndWhereTheRowDoes();
    void RingsOnlyWhenAKeyBroughtTheFocus_data();
    void RingsOnlyWhenAKeyBroughtTheFocus();
    void HandlesLightUpWhenThePointerRests();
    void GrooveSplitterTakesItsGrooveOnly_data();
    void GrooveSplitterTakesItsGrooveOnly();

private:
    void CreateFrame();
    static int Count(const QImage& picture, const QColor& color);

    std::unique_ptr<WindowFixture> m_host;
    std::unique_ptr<TarnwickStyle> m_style;
    std::unique_ptr<QWidget> m_frame;
};

void StyleTest::cleanup()
{
    m_frame.reset();
    m_style.reset();
    Settings::customScaleValue = 1.0;
}

void StyleTest::CreateFrame()
{
    m_style = std::make_unique<TarnwickStyle>();
    m_frame = std::make_unique<QWidget>();
    m_frame->setStyle(m_style.get());
    m_frame->setStyleSheet(Theme::StyleSheet());
    m_frame->resize(400, 300);
    new QVBoxLayout(m_frame.get());
}

int StyleTest::Count(const QImage& picture, const QColor& color)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += picture.pixelColor(x, y) == color;
    }
    return count;
}

void StyleTest::MenusFollowTheScale_data()
{
    Columns<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("%g", scale) << scale;
}

void StyleTest::MenusFollowTheScale()
{
    QFETCH(double, scale);
    Settings::customScaleValue = scale;
    CreateFrame();
    QMenu menu(m_frame.get());
    QAction* const first = menu.addAction("First");
    menu.addSeparator();
    QAction* const second = menu.addAction("Second");
    menu.ensurePolished();
    menu.adjustSize();
    const QRect top = menu.actionGeometry(first);
    const QRect bottom = menu.actionGeometry(second);
    QCOMPARE(top.topLeft(), QPoint(Theme::Hairline(), Theme::Hairline() + Theme::Dp(4)));
    QCOMPARE(top.height(), Theme::Dp(24));
    QCOMPARE(bottom.y() - top.bottom() - 1, Theme::Hairline() + 2 * Theme::Dp(4));
    QCOMPARE(menu.height() - bottom.bottom() - 1, top.y());
}

using MakeWidget = QWidget* (*)(QWidget*);
Q_DECLARE_METATYPE(MakeWidget)

void StyleTest::WidgetsFollowTheScale_data()
{
    static KeyBindings bindings;
    Columns<MakeWidget>("make");
    const auto row = [](const char* name, MakeWidget make) { Row(name, make); };
    row("find bar", [](QWidget* p) -> QWidget* { return new FindReplaceWidget(true, p); });
    row("find only", [](QWidget* p) -> QWidget* { return new FindReplaceWidget(false, p); });
    row("section", [](QWidget* p) -> QWidget* { return new SubViewHeader("Outline", p); });
    row("activity bar", [](QWidget* p) -> QWidget* { return new ActivityBar(p); });
    row("status bar", [](QWidget* p) -> QWidget* { return new StatusBar(p); });
    row("quick help", [](QWidget* p) -> QWidget* { return new QuickHelpView(p); });
    row("output", [](QWidget* p) -> QWidget* { return new PanelGroup(&bindings, p); });
}

/// What was there before looks like what is made at the new scale.
void StyleTest::WidgetsFollowTheScale()
{
    QFETCH(MakeWidget, make);
    const auto picture = [](QWidget* widget) {
        auto* const bar = qobject_cast<FindReplaceWidget*>(widget);
        if (bar)
            bar->SetReplaceVisible(true);
        else
            widget->resize(800, 400);
        return widget->grab().toImage();
    };
    CreateFrame();
    QWidget* const before = make(m_frame.get());
    const QImage small = picture(before);
    Settings::customScaleValue = 2.0;
    m_frame->setStyleSheet(Theme::StyleSheet());
    const QImage large = picture(before);
    QVERIFY(large != small);
    QCOMPARE(large, picture(make(m_frame.get())));
}

void StyleTest::FocusedFieldsHaveAHalo_data()
{
    Columns<bool>("combo");
    Row("line", false);
    Row("combo box", true);
}

void StyleTest::FocusedFieldsHaveAHalo()
{
    QFETCH(bool, combo);
    CreateFrame();
    QWidget* field = nullptr;
    if (combo)
        field = new QComboBox(m_frame.get());
    else
        field = new QLineEdit(m_frame.get());
    auto* const other = new QPushButton("Other", m_frame.get());
    m_frame->layout()->addWidget(field);
    m_frame->layout()->addWidget(other);
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    const auto beside = [&] {
        const QPoint place(field->geometry().center().x(), field->geometry().bottom() + 1);
        return m_frame->grab().toImage().pixelColor(place);
    };
    other->setFocus();
    const QColor plain = beside();
    field->setFocus(Qt::MouseFocusReason);
    QVERIFY(beside() != plain);
    m_frame->resize(300, 240);
    QVERIFY(beside() != plain);
    other->setFocus();
    QCOMPARE(beside(), plain);
}

void StyleTest::ShortcutsEndWhereTheRowDoes()
{
    CreateFrame();
    QMenu menu(m_frame.get());
    menu.addAction(
        "A", [] {}, QKeySequence("F2"));
    menu.addAction(
        "A much longer entry", [] {}, QKeySequence("Ctrl+Shift+Alt+F12"));
    menu.adjustSize();
    const QImage picture = menu.grab().toImage();
    const QColor raise = Theme::Color(Theme::Role::Raise);
    const auto textEnd = [&](const QRect& row) {
        for (int x = row.right() - 2; x > row.left(); --x) {
            for (int y = row.top() + 4; y < row.bottom() - 4; ++y) {
                if (picture.pixelColor(x, y) != raise)
                    return x;
            }
        }
        return -1;
    };
    const int shorter = textEnd(menu.actionGeometry(menu.actions()[0]));
    const int longer = textEnd(menu.actionGeometry(menu.actions()[1]));
    QVERIFY(qAbs(shorter - longer) <= 1);
    QVERIFY(qAbs(menu.width() - longer - 18) <= 2);
}

void StyleTest::RingsOnlyWhenAKeyBroughtTheFocus_data()
{
    Columns<bool, int, bool>("checkBox", "reason", "ring");
    for (const bool checkBox : {false, true}) {
        const char* const what = checkBox ? "check box" : "button";
        QTest::addRow("%s, tab", what) << checkBox << int(Qt::TabFocusReason) << true;
        QTest::addRow("%s, back tab", what) << checkBox << int(Qt::BacktabFocusReason) << true;
        QTest::addRow("%s, shortcut", what) << checkBox << int(Qt::ShortcutFocusReason) << true;
        QTest::addRow("%s, mouse", what) << checkBox << int(Qt::MouseFocusReason) << false;
        QTest::addRow("%s, program", what) << checkBox << int(Qt::OtherFocusReason) << false;
    }
}

void StyleTest::RingsOnlyWhenAKeyBroughtTheFocus()
{
    QFETCH(bool, checkBox);
    QFETCH(int, reason);
    CreateFrame();
    QAbstractButton* control = nullptr;
    if (checkBox)
        control = new QCheckBox("Option", m_frame.get());
    else
        control = new QPushButton("Replace", m_frame.get());
    auto* const other = new QPushButton("Other", m_frame.get());
    m_frame->layout()->addWidget(control);
    m_frame->layout()->addWidget(other);
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    other->setFocus();
    const QColor lake = Theme::Color(Theme::Role::Lake);
    QCOMPARE(Count(control->grab().toImage(), lake), 0);
    control->setFocus(Qt::FocusReason(reason));
    QTEST(Count(control->grab().toImage(), lake) > 0, "ring");
    other->setFocus();
    QCOMPARE(Count(control->grab().toImage(), lake), 0);
}

void StyleTest::HandlesLightUpWhenThePointerRests()
{
    CreateFrame();
    auto* const splitter = new QSplitter(m_frame.get());
    splitter->addWidget(new QWidget);
    splitter->addWidget(new QWidget);
    m_frame->layout()->addWidget(splitter);
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    QSplitterHandle* const handle = splitter->handle(1);
    // As it is on the screen: pictures made by grab do not name the painted widget.
    const auto groove = [this, handle] {
        const QPoint place = handle->mapTo(m_frame.get(), QPoint(1, 100));
        const QPixmap screen = m_frame->screen()->grabWindow(m_frame->winId());
        return screen.toImage().pixelColor(place);
    };
    QCOMPARE(handle->width(), 4);
    QCOMPARE(groove(), Theme::Color(Theme::Role::Groove));
    const auto hover = [handle](QEvent::Type type) {
        QHoverEvent event(type, QPointF(2, 100), QPointF(-1, -1));
        QCoreApplication::sendEvent(handle, &event);
    };
    hover(QEvent::HoverEnter);
    QTRY_COMPARE(groove(), Theme::Color(Theme::Role::Lake));
    hover(QEvent::HoverLeave);
    QTRY_COMPARE(groove(), Theme::Color(Theme::Role::Groove));
}

void StyleTest::GrooveSplitterTakesItsGrooveOnly_data()
{
    Columns<double, bool>("scale", "before");
    for (const double scale : {1.0, 1.5, 2.0}) {
        QTest::addRow("%g, before", scale) << scale << true;
        QTest::addRow("%g, behind", scale) << scale << false;
    }
}

void StyleTest::GrooveSplitterTakesItsGrooveOnly()
{
    QFETCH(double, scale);
    QFETCH(bool, before);
    Settings::customScaleValue = scale;
    CreateFrame();
    auto* const splitter = new GrooveSplitter(Qt::Horizontal, m_frame.get());
    splitter->addWidget(new QWidget);
    splitter->addWidget(new QWidget);
    splitter->SetGrabsBefore(before);
    m_frame->layout()->addWidget(splitter);
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    const QRect left = splitter->widget(0)->geometry();
    const QRect right = splitter->widget(1)->geometry();
    const int hairline = Theme::Hairline();
    QCOMPARE(right.x() - left.right() - 1, hairline);
    const int over = Theme::Dp(4) - hairline; // grabbed, but another's picture
    const QRect grab = splitter->handle(1)->geometry();
    QCOMPARE(grab.x(), left.right() + 1 - (before ? over : 0));
    QCOMPARE(grab.width(), Theme::Dp(4));
}

TE2_TEST(StyleTest)
#include "StyleTest.moc"
