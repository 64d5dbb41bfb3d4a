#pragma once

#include <maya/MPxCommand.h>
#include <maya/MSyntax.h>

struct OutputText;
class QWidget;
class TarnwickEditor;

/// The host command `tarnwickEditor2`: shows the editor window in its workspace control, or does
/// what its one flag says. The class owns the only window, from the first showing to Shutdown. Main
/// thread only, AppendToOutput aside.
class TarnwickEditorCommand : public MPxCommand
{
public:
    static void* Creator();
    static MSyntax CommandSyntax();
    MStatus doIt(const MArgList& arguments) override;

    /// After the command was registered: reads the user's files and takes its places in the host.
    static void Initialize();
    /// Gives the places back and saves and deletes the window. A second call finds nothing to save.
    static void Shutdown();
    static void Cleanup();

    static MString GetCommandName();
    /// Whether the window exists.
    static bool GuiAvailable();
    /// Shows the text in the console, if there is a window. Any thread.
    static void AppendToOutput(const OutputText& text);

private:
    static MStatus GetVersion();
    static MStatus ClearOutput();
    static MStatus OpenFile(const MString& path);
    static MStatus RevertPythonModuleState();
    static MStatus ShowWindow();
    /// Makes the window unless it exists, and puts it into the control (null: find it by name).
    static void PlaceWindow(QWidget* control);
};
