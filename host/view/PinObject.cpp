#include "PinObject.h"

PinObject::PinObject(int id, double x, double y, const QString& label, int participantId, const QString& note)
    : id(id)
    , x(x)
    , y(y)
    , label(label)
    , participantId(participantId)
    , note(note)
{ }
