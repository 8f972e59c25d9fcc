#ifndef KAMO_VIEW_PINOBJECT_H
#define KAMO_VIEW_PINOBJECT_H

#include "kamo_view_export.h"

#include <QString>

/// A pin set by hand on a page of a document to mark a party affected by the
/// project (a land owner, a utility): where it sits and whom it stands for.
/// The host keeps them per document and page, apart from the annotations.
class KAMO_VIEW_EXPORT PinObject
{
public:
    /// An empty pin (id 0).
    PinObject() = default;
    /// A pin of id \p id at \p x, \p y millimetres from the page's left and top edge, with its label, its participant
    /// (0: none) and a note.
    PinObject(int id, double x, double y, const QString& label, int participantId = 0, const QString& note = QString());

    /// The pin's id (unique within the project), position in millimetres from the page's left and top edge, label,
    /// participant id (0: none) and note.
    ///@{
    int Id() const { return id; }
    double X() const { return x; }
    double Y() const { return y; }
    const QString& Label() const { return label; }
    int ParticipantId() const { return participantId; }
    const QString& Note() const { return note; }
    ///@}

private:
    int id = 0;
    double x = 0.0;
    double y = 0.0;
    QString label;
    int participantId = 0;
    QString note;
};

#endif
