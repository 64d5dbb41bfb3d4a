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
    void init()
    {
        m_host = std::make_unique<ApiFixture>();
        m_windows = std::make_unique<NamedInterface>();
        m_host->engine.ui = m_windows.get();
    }
    void cleanup() { m_host.reset(); }

    void HasNothingWithoutWindows();
    void FindsElements();
    void KnowsParentsAndChildren();
    void AddsWidgets();
    void ScalesSizes();
    void FindsImagesAlongThePath();

private:
    std::unique_ptr<NamedInterface> m_windows;
    std::unique_ptr<ApiFixture> m_host;
};

void QtUtilTest::HasNothingWithoutWindows()
{
    m_host->engine.ui = nullptr;
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
    QCOMPARE(MQtUtil::mainWindow(), &m_windows->window);
    QCOMPARE(MQtUtil::findControl("window|layout|control"), m_windows->control);
    QCOMPARE(MQtUtil::findControl("control", m_windows->control), nullptr);
    QCOMPARE(MQtUtil::fullName(m_windows->control).asChar(), "window|layout|control");
    QCOMPARE(MQtUtil::getCurrentParent(), m_windows->layout);
}

void QtUtilTest::KnowsParentsAndChildren()
{
    QCOMPARE(MQtUtil::getParent(m_windows->control), m_windows->layout);
    QCOMPARE(MQtUtil::getParent(m_windows->layout), &m_windows->window);
    QCOMPARE(MQtUtil::getParent(&m_windows->window), nullptr);
    QCOMPARE(MQtUtil::getLayoutChildren(m_windows->layout), QList<QObject*>{m_windows->control});
}

void QtUtilTest::AddsWidgets()
{
    auto* widget = new QWidget;
    QCOMPARE(MQtUtil::addWidgetToMayaLayout(widget, m_windows->layout, "editor").asChar(),
        "window|layout|editor");
    QCOMPARE(widget->parentWidget(), m_windows->layout);
    QCOMPARE(MQtUtil::addWidgetToMayaLayout(nullptr, m_windows->layout).length(), 0u);
}

void QtUtilTest::ScalesSizes()
{
    QCOMPARE(MQtUtil::dpiScale(3), 5);
    QCOMPARE(MQtUtil::dpiScale(1.0f), 1.5f);
}

void QtUtilTest::FindsImagesAlongThePath()
{
    QPixmap image(10, 20);
    image.fill(Qt::red);
    QVERIFY(image.save(m_host->directory.filePath("te2Probe.png")));
    qputenv("XBMLANGPATH", ("/nowhere/%B:" + m_host->directory.path() + "/%B").toLocal8Bit());
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
