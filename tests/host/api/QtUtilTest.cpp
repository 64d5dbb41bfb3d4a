#include "host/api/ApiFixture.h"
#include "support/TestMain.h"

#include <maya/MQtUtil.h>

#include <QAction>
#include <QCursor>
#include <QIcon>
#include <QPixmap>
#include <QWidget>
#include <QtTest>

namespace {

/// Windows whose elements are named by their objects: "window|layout|control".
class NamedInterface : public host::UserInterface
{
public:
    NamedInterface()
    {
        window.setObjectName("window");
        layout->setObjectName("layout");
        control->setObjectName("control");
    }

    QWidget* MainWindow() const override { return const_cast<QWidget*>(&window); }
    QWidget* FindControl(const QString& name, const QWidget* ancestor) const override
    {
        const QWidget* root = ancestor ? ancestor : &window;
        return root->findChild<QWidget*>(name.section('|', -1));
    }
    QWidget* FindLayout(const QString& name, const QWidget* ancestor) const override
    {
        return name.section('|', -1) == "layout" ? FindControl(name, ancestor) : nullptr;
    }
    QWidget* FindWindow(const QString& name) const override
    {
        return name == "window" ? MainWindow() : nullptr;
    }
    QAction* FindMenuItem(const QString&) const override { return nullptr; }
    QString FullName(const QObject* object) const override
    {
        QStringList names;
        for (; object && !object->objectName().isEmpty(); object = object->parent())
            names.prepend(object->objectName());
        return names.join('|');
    }
    QWidget* CurrentParent() const override { return layout; }
    QString AddWidget(QWidget* widget, QWidget* parent, const QString& type) override
    {
        widget->setParent(parent);
        widget->setObjectName(type.isEmpty() ? "added" : type);
        return FullName(widget);
    }
    double ScaleFactor() const override { return 1.5; }

    QWidget window;
    QWidget* layout = new QWidget(&window);
    QWidget* control = new QWidget(layout);
    QWidget* nameless = new QWidget(layout);
};

} // namespace

/// MQtUtil without and with windows.
class QtUtilTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void HasNothingWithoutWindows();
    void FindsElements();
    void KnowsParentsAndChildren();
    void AddsWidgets();
    void ScalesSizes();
    void FindsImagesAlongThePath();
};

void QtUtilTest::HasNothingWithoutWindows()
{
    const ApiFixture host(host::RunState::Batch);
    QWidget widget;
    QVERIFY(!MQtUtil::mainWindow() && !MQtUtil::findControl("x") && !MQtUtil::findLayout("x"));
    QVERIFY(!MQtUtil::findWindow("x") && !MQtUtil::findMenuItem("x"));
    QVERIFY(!MQtUtil::getCurrentParent() && !MQtUtil::getParent(&widget));
    QVERIFY(MQtUtil::getLayoutChildren(&widget).isEmpty());
    QCOMPARE(MQtUtil::fullName(&widget).length(), 0u);
    QCOMPARE(MQtUtil::addWidgetToMayaLayout(&widget, &widget).length(), 0u);
    QCOMPARE(MQtUtil::dpiScale(10), 10);
    QVERIFY(!MQtUtil::createPixmap("x.png"));
}

void QtUtilTest::FindsElements()
{
    ApiFixture host;
    NamedInterface windows;
    host.engine.ui = &windows;
    QCOMPARE(MQtUtil::mainWindow(), &windows.window);
    QCOMPARE(MQtUtil::findControl("window|layout|control"), windows.control);
    QCOMPARE(MQtUtil::findControl("control", windows.control), nullptr);
    QCOMPARE(MQtUtil::fullName(windows.control).asChar(), "window|layout|control");
    QCOMPARE(MQtUtil::getCurrentParent(), windows.layout);
}

void QtUtilTest::KnowsParentsAndChildren()
{
    ApiFixture host;
    NamedInterface windows;
    host.engine.ui = &windows;
    QCOMPARE(MQtUtil::getParent(windows.control), windows.layout);
    QCOMPARE(MQtUtil::getParent(windows.layout), &windows.window);
    QCOMPARE(MQtUtil::getParent(&windows.window), nullptr);
    QCOMPARE(MQtUtil::getLayoutChildren(windows.layout), QList<QObject*>{windows.control});
}

void QtUtilTest::AddsWidgets()
{
    ApiFixture host;
    NamedInterface windows;
    host.engine.ui = &windows;
    auto* widget = new QWidget;
    QCOMPARE(MQtUtil::addWidgetToMayaLayout(widget, windows.layout, "editor").asChar(),
        "window|layout|editor");
    QCOMPARE(widget->parentWidget(), windows.layout);
    QCOMPARE(MQtUtil::addWidgetToMayaLayout(nullptr, windows.layout).length(), 0u);
}

void QtUtilTest::ScalesSizes()
{
    ApiFixture host;
    NamedInterface windows;
    host.engine.ui = &windows;
    QCOMPARE(MQtUtil::dpiScale(3), 5);
    QCOMPARE(MQtUtil::dpiScale(1.0f), 1.5f);
}

void QtUtilTest::FindsImagesAlongThePath()
{
    ApiFixture host;
    NamedInterface windows;
    host.engine.ui = &windows;
    QPixmap image(10, 20);
    image.fill(Qt::red);
    QVERIFY(image.save(host.directory.filePath("te2Probe.png")));
    qputenv("XBMLANGPATH", ("/nowhere/%B:" + host.directory.path() + "/%B").toLocal8Bit());
    const std::unique_ptr<QPixmap> scaled(MQtUtil::createPixmap("te2Probe.png"));
    const std::unique_ptr<QPixmap> plain(MQtUtil::createPixmap("te2Probe.png", false));
    const std::unique_ptr<QIcon> icon(MQtUtil::createIcon("te2Probe.png", false));
    const std::unique_ptr<QCursor> cursor(MQtUtil::createCursor("te2Probe.png", false));
    qunsetenv("XBMLANGPATH");
    QVERIFY(scaled && plain && icon && cursor);
    QCOMPARE(scaled->size(), QSize(15, 30));
    QCOMPARE(plain->size(), QSize(10, 20));
    QVERIFY(!icon->isNull());
    QVERIFY(!MQtUtil::createIcon("te2Missing.png"));
}

TE2_TEST(QtUtilTest)
#include "QtUtilTest.moc"
