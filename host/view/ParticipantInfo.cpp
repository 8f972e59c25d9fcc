#include "ParticipantInfo.h"

ParticipantInfo::ParticipantInfo(int id, const QString& name, const QString& organisation)
    : ItemInfo(Kind::Participant, id, name)
    , organisation(organisation)
{ }

ParticipantInfo::~ParticipantInfo() = default;
