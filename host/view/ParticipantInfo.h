#ifndef KAMO_VIEW_PARTICIPANTINFO_H
#define KAMO_VIEW_PARTICIPANTINFO_H

#include "ItemInfo.h"
#include "kamo_view_export.h"

#include <QString>

/// A party affected by the project (a land owner, a utility, an authority)
/// whom pins on the documents stand for.
class KAMO_VIEW_EXPORT ParticipantInfo : public ItemInfo
{
public:
    /// A participant with its id, name and organisation.
    ParticipantInfo(int id = 0, const QString& name = QString(), const QString& organisation = QString());
    ~ParticipantInfo() override;

    /// The organisation the participant belongs to; may be empty.
    const QString& Organisation() const { return organisation; }

private:
    QString organisation;
};

#endif
