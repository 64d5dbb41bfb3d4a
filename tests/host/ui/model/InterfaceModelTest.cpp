#include "ui/model/InterfaceModel.h"

#include "support/TestMain.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

using namespace host::ui;

class InterfaceModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void DefaultNamesAreCountedAndUnique();
    void TheSameNameMayStandUnderTwoParents();
    void LastPartsOfAPathNameAnElement();
    void AnElementGoesWithItsWidget();
    void ChildrenGoBeforeTheirParent();
    void DeletedWidgetsLiveUntilTheEventLoop();
    void TheCurrentParentFallsBackToTheOneAbove();
    void ForeignWidgetsGetFreeNames();
    void ForeignWidgetsMoveBetweenLayouts();
    void NothingIsAddedOutsideOfLayouts();

private:
    Element* NewLayout(const QString& name);

    std::unique_ptr<InterfaceModel> m_model;
    std::unique_ptr<QWidget> m_window;
};

void InterfaceModelTest::init()
{
    m_model = std::make_unique<InterfaceModel>();
    m_window = std::make_unique<QWidget>();
    m_model->Create(WindowKind, "window", "top", nullptr)
        ->SetWidget(m_window.get(), m_window.get());
}

void InterfaceModelTest::cleanup()
{
    m_window.reset();
    m_model.reset();
}

Element* InterfaceModelTest::NewLayout(const QString& name)
{
    Element* layout = m_model->Create(LayoutKind, "columnLayout", name, m_model->Find("top"));
    auto* widget = new QWidget;
    layout->SetWidget(widget, widget);
    return layout;
}

void InterfaceModelTest::DefaultNamesAreCountedAndUnique()
{
    Element* layout = NewLayout("rows");
    m_model->Create(ControlKind, "button", "button2", layout);
    QCOMPARE(m_model->Create(ControlKind, "button", {}, layout)->GetName(), "button1");
    QCOMPARE(m_model->Create(ControlKind, "button", {}, layout)->GetName(), "button3");
    QCOMPARE(m_model->Create(ControlKind, "button", "my button", layout)->GetName(), "my_button");
    QVERIFY(!m_model->Create(ControlKind, "text", "button1", layout));
}

void InterfaceModelTest::TheSameNameMayStandUnderTwoParents()
{
    Element* left = NewLayout("left");
    Element* right = NewLayout("right");
    Element* first = m_model->Create(ControlKind, "button", "ok", left);
    Element* second = m_model->Create(ControlKind, "button", "ok", right);
    QVERIFY(!m_model->Find("ok"));
    QCOMPARE(m_model->FindAll("ok"), (QVector<Element*>{first, second}));
    QCOMPARE(m_model->Find("top|right|ok"), second);
    QVERIFY(!m_model->Rename(left, "right"));
    QVERIFY(m_model->Rename(first, "fine"));
    QCOMPARE(m_model->Find("ok"), second);
}

void InterfaceModelTest::LastPartsOfAPathNameAnElement()
{
    Element* button = m_model->Create(ControlKind, "button", "ok", NewLayout("rows"));
    QCOMPARE(button->FullName(), "top|rows|ok");
    QCOMPARE(m_model->Find("rows|ok"), button);
    QVERIFY(!m_model->Find("ows|ok"));
    QVERIFY(!m_model->Find("ok", LayoutKind | MenuItemKind));
}

void InterfaceModelTest::AnElementGoesWithItsWidget()
{
    Element* layout = NewLayout("rows");
    auto* label = new QLabel;
    m_model->Create(ControlKind, "text", "words", layout)->SetWidget(label);
    QCOMPARE(label->objectName(), "words");
    QSignalSpy removed(m_model.get(), &InterfaceModel::ElementRemoved);
    delete label;
    QCOMPARE(removed.count(), 1);
    QVERIFY(!m_model->Find("words"));
    QVERIFY(layout->GetChildren().isEmpty());
}

void InterfaceModelTest::ChildrenGoBeforeTheirParent()
{
    Element* layout = NewLayout("rows");
    m_model->Create(ControlKind, "text", "words", layout)->SetWidget(new QLabel);
    QStringList names;
    connect(m_model.get(), &InterfaceModel::ElementRemoved, this,
        [&names](Element* element) { names += element->FullName(); });
    m_window.reset();
    QCOMPARE(names, (QStringList{"top|rows|words", "top|rows", "top"}));
    QVERIFY(m_model->List(ANY_KIND).isEmpty());
}

void InterfaceModelTest::DeletedWidgetsLiveUntilTheEventLoop()
{
    Element* button = m_model->Create(ControlKind, "button", "ok", NewLayout("rows"));
    const QPointer<QPushButton> widget = new QPushButton;
    button->SetWidget(widget);
    connect(widget, &QPushButton::clicked, button, [&] { m_model->Delete(button); });
    widget->click();
    QVERIFY(widget && widget->isHidden());
    QVERIFY(!m_model->Find("ok") && !m_model->FindByObject(widget)->GetParent()->GetParent());
    QTRY_VERIFY(!widget);
}

void InterfaceModelTest::TheCurrentParentFallsBackToTheOneAbove()
{
    Element* layout = NewLayout("rows");
    m_model->SetCurrentParent(layout);
    {
        const ParentScope scope(*m_model);
        m_model->SetCurrentParent(m_model->Find("top"));
    }
    QCOMPARE(m_model->CurrentParent(), layout->GetContent());
    m_model->Delete(layout);
    QCOMPARE(m_model->GetCurrentParent(), m_model->Find("top"));
    m_window.reset();
    QVERIFY(!m_model->GetCurrentParent());
}

void InterfaceModelTest::ForeignWidgetsGetFreeNames()
{
    Element* layout = NewLayout("rows");
    auto* unnamed = new QLabel;
    auto* named = new QLabel;
    named->setObjectName("QLabel1");
    QCOMPARE(m_model->AddWidgetNamed(unnamed, layout->GetContent(), {}), "top|rows|QLabel1");
    QCOMPARE(m_model->AddWidgetNamed(named, layout->GetContent(), "panel"), "top|rows|QLabel2");
    QCOMPARE(named->objectName(), "QLabel2");
    QCOMPARE(named->property("hostControlType").toString(), "panel");
    QCOMPARE(named->parentWidget(), layout->GetContent());
    QCOMPARE(m_model->FindControl("QLabel2", m_window.get()), named);
    QVERIFY(!m_model->FindControl("QLabel2", unnamed));
}

void InterfaceModelTest::ForeignWidgetsMoveBetweenLayouts()
{
    Element* left = NewLayout("left");
    Element* right = NewLayout("right");
    auto* label = new QLabel;
    m_model->AddWidget(label, left->GetContent(), {});
    QCOMPARE(m_model->AddWidgetNamed(label, right->GetContent(), {}), "top|right|QLabel1");
    QVERIFY(left->GetChildren().isEmpty());
    m_model->Delete(left);
    QCOMPARE(m_model->FullName(label), "top|right|QLabel1");
}

void InterfaceModelTest::NothingIsAddedOutsideOfLayouts()
{
    Element* button = m_model->Create(ControlKind, "button", "ok", NewLayout("rows"));
    button->SetWidget(new QPushButton);
    QWidget stray;
    QLabel label;
    QVERIFY(m_model->AddWidgetNamed(&label, &stray, {}).isEmpty());
    QVERIFY(m_model->AddWidgetNamed(&label, button->GetWidget(), {}).isEmpty());
    QVERIFY(m_model->AddWidgetNamed(nullptr, m_window.get(), {}).isEmpty());
    QVERIFY(!m_model->FindExact(&label));
}

TE2_TEST(InterfaceModelTest)
#include "InterfaceModelTest.moc"
