#include "api/Conversions.h"
#include "api/Images.h"
#include "engine/Engine.h"

#include <maya/MQtUtil.h>

#include <QApplication>
#include <QCursor>
#include <QIcon>
#include <QPixmap>
#include <QWidget>

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::api::ToMString;
using host::api::ToQString;

namespace {

/// The host's windows; null in batch mode, before they exist, and off the main thread.
const host::UserInterface* Interface()
{
    if (!host::Engine::Exists() || !host::Engine::Current().IsMainThread())
        return nullptr;
    return host::Engine::Current().ui;
}

double ScaleFactor()
{
    const host::UserInterface* ui = Interface();
    return ui ? ui->ScaleFactor() : 1.0;
}

} // namespace

QWidget* MQtUtil::mainWindow()
{
    const host::UserInterface* ui = Interface();
    return ui ? ui->MainWindow() : nullptr;
}

QWidget* MQtUtil::findControl(MString name, const QWidget* ancestor)
{
    const host::UserInterface* ui = Interface();
    return ui ? ui->FindControl(ToQString(name), ancestor) : nullptr;
}

QWidget* MQtUtil::findLayout(MString name, const QWidget* ancestor)
{
    const host::UserInterface* ui = Interface();
    return ui ? ui->FindLayout(ToQString(name), ancestor) : nullptr;
}

QAction* MQtUtil::findMenuItem(MString name)
{
    const host::UserInterface* ui = Interface();
    return ui ? ui->FindMenuItem(ToQString(name)) : nullptr;
}

QWidget* MQtUtil::findWindow(MString name)
{
    const host::UserInterface* ui = Interface();
    return ui ? ui->FindWindow(ToQString(name)) : nullptr;
}

MString MQtUtil::fullName(const QObject* object)
{
    const host::UserInterface* ui = Interface();
    return ui && object ? ToMString(ui->FullName(object)) : MString();
}

QWidget* MQtUtil::getCurrentParent()
{
    const host::UserInterface* ui = Interface();
    return ui ? ui->CurrentParent() : nullptr;
}

QObject* MQtUtil::getParent(const QObject* object)
{
    const host::UserInterface* ui = Interface();
    const QString name = ui && object ? ui->FullName(object) : QString();
    const QString parent = name.section(QLatin1Char('|'), 0, -2);
    if (parent.isEmpty())
        return nullptr;
    if (QWidget* layout = ui->FindLayout(parent, nullptr))
        return layout;
    QWidget* control = ui->FindControl(parent, nullptr);
    return control ? control : ui->FindWindow(parent);
}

QList<QObject*> MQtUtil::getLayoutChildren(const QWidget* layout)
{
    QList<QObject*> children;
    const host::UserInterface* ui = Interface();
    const QString name = ui && layout ? ui->FullName(layout) : QString();
    if (name.isEmpty())
        return children;
    const QList<QObject*> descendants = layout->findChildren<QObject*>();
    for (QObject* descendant : descendants) {
        const QString path = ui->FullName(descendant);
        if (!path.isEmpty() && path.section(QLatin1Char('|'), 0, -2) == name)
            children += descendant;
    }
    return children;
}

MString MQtUtil::addWidgetToMayaLayout(QWidget* control, QWidget* layout, const MString& uiType)
{
    if (!Interface() || !control || !layout)
        return {};
    return ToMString(host::Engine::Current().ui->AddWidget(control, layout, ToQString(uiType)));
}

QPixmap* MQtUtil::createPixmap(const MString& imageName, bool autoScale)
{
    const QPixmap pixmap
        = host::api::FindPixmap(ToQString(imageName), autoScale ? ScaleFactor() : 1);
    return pixmap.isNull() ? nullptr : new QPixmap(pixmap);
}

QCursor* MQtUtil::createCursor(const MString& imageName, bool autoScale)
{
    const QPixmap pixmap
        = host::api::FindPixmap(ToQString(imageName), autoScale ? ScaleFactor() : 1);
    return pixmap.isNull() ? nullptr : new QCursor(pixmap);
}

QIcon* MQtUtil::createIcon(const MString& imageName, bool autoScale)
{
    const QPixmap pixmap
        = host::api::FindPixmap(ToQString(imageName), autoScale ? ScaleFactor() : 1);
    return pixmap.isNull() ? nullptr : new QIcon(pixmap);
}

MNativeWindowHdl MQtUtil::nativeWindow(const QWidget* widget)
{
    return widget ? static_cast<MNativeWindowHdl>(widget->effectiveWinId()) : 0;
}

MString MQtUtil::toMString(const QString& text)
{
    return ToMString(text);
}

QString MQtUtil::toQString(const MString& text)
{
    return ToQString(text);
}

int MQtUtil::dpiScale(int size)
{
    return qRound(size * ScaleFactor());
}

float MQtUtil::dpiScale(float size)
{
    return static_cast<float>(size * ScaleFactor());
}

const char* MQtUtil::className()
{
    return "MQtUtil";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
