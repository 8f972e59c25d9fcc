#ifndef KAMO_VIEW_PINOBJECT_H
#define KAMO_VIEW_PINOBJECT_H

#include "kamo_view_export.h"

#include <QString>

// A pin set by hand on a page of a document to mark a party affected by the
// project (a land owner, a utility): where it sits and whom it stands for.
// The host keeps them per document and page, apart from the annotations.
class KAMO_VIEW_EXPORT PinObject
{
public:
    PinObject() = default;
    PinObject(int id, double x, double y, const QString& label, int participantId = 0, const QString& note = QString());

    int Id() const { return id; }  // unique within the project
    double X() const { return x; } // millimetres from the page's left edge
    double Y() const { return y; } // millimetres from the page's top edge
    const QString& Label() const { return label; }
    int ParticipantId() const { return participantId; } // 0: none
    const QString& Note() const { return note; }

private:
    int id = 0;
    double x = 0.0;
    double y = 0.0;
    QString label;
    int participantId = 0;
    QString note;
};

#endif
