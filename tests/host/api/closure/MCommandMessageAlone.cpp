#include <maya/MCommandMessage.h>

MCallbackId OutputAlone()
{
    return MCommandMessage::addCommandOutputCallback(
        [](const MString&, MCommandMessage::MessageType, void*) { MMessage::currentCallbackId(); });
}
