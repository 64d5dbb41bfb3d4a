#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MString.h>

#include <QList>

class QAction;
class QCursor;
class QIcon;
class QObject;
class QPixmap;
class QString;
class QWidget;

/// The window system's own number of a window.
typedef unsigned long MNativeWindowHdl;

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The host's windows as toolkit widgets, and conversions between the toolkit and the API. Main
/// thread only, the string conversions aside. Widgets are the host's; icons, pixmaps and cursors
/// made here are the caller's to delete.
class OPENMAYA_EXPORT MQtUtil
{
public:
    /// Makes a control of a plug-in's type; the host owns it.
    typedef QWidget* (*UITypeCreatorFn)(QWidget* parent, const QString& name);

    /// Null before the window exists and in batch mode.
    static QWidget* mainWindow();
    /// By plain name or path "window|layout|control"; null when absent.
    static QWidget* findControl(MString name, const QWidget* ancestor = nullptr);
    static QWidget* findLayout(MString name, const QWidget* ancestor = nullptr);
    static QAction* findMenuItem(MString name);
    static QWidget* findWindow(MString name);
    /// Path of an element; "" when it is none of the host's.
    static MString fullName(const QObject* object);
    /// Content widget of the layout or panel that `setParent -q` names; null when there is none.
    static QWidget* getCurrentParent();
    static QObject* getParent(const QObject* object);
    static QList<QObject*> getLayoutChildren(const QWidget* layout);
    /// Puts a widget under the host's management; its full name, "" on failure.
    static MString addWidgetToMayaLayout(
        QWidget* control, QWidget* layout, const MString& uiType = MString());

    /// Adds a type of control that a MEL command makes. False when either name is taken.
    static bool registerUIType(
        const MString& name, UITypeCreatorFn creator, const MString& command);
    static bool deregisterUIType(const MString& name);

    /// From a Qt resource or a file along the icon path; null when absent.
    static QPixmap* createPixmap(const MString& imageName, bool autoScale = true);
    static QCursor* createCursor(const MString& imageName, bool autoScale = true);
    static QIcon* createIcon(const MString& imageName, bool autoScale = true);

    static MNativeWindowHdl nativeWindow(const QWidget* widget);

    /// Exact both ways, whatever the text holds.
    static MString toMString(const QString& text);
    static QString toQString(const MString& text);

    /// Sizes of the interface are multiplied by this; 1 at 96 dots per inch.
    static int dpiScale(int size);
    static float dpiScale(float size);

    static const char* className();
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
