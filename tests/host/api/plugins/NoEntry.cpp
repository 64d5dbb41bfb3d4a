// An ordinary library in the plug-in folder.

#include <maya/MString.h>

__attribute__((visibility("default"))) unsigned int LengthOfNothing()
{
    return MString().length();
}
