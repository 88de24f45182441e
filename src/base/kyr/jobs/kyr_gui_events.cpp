#include <kyr/jobs/KyrGUIThreadEvent.h>

namespace Kyr {

GUIThreadEvent::GUIThreadEvent(QEvent::Type type) : QEvent(type) {}

// The destructors stand here so that the tables of virtual functions, by which an application
// recognises an event across libraries, exist once.
GUIThreadEvent::~GUIThreadEvent() = default;

GUIThreadEventCreator::~GUIThreadEventCreator() = default;

}  // namespace Kyr
