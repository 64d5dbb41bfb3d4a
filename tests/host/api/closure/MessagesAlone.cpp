#include <maya/MEventMessage.h>

MCallbackId EventAlone(MStringArray& names)
{
    MEventMessage::getEventNames(names);
    return MEventMessage::addEventCallback(MString("idle"), [](void*) {});
}
