#ifndef KAMO_VIEW_GEOSYSTEMIDENTIFY_H
#define KAMO_VIEW_GEOSYSTEMIDENTIFY_H

#include <QString>

// The EPSG code of the projected or geographic 2D system the definition
// describes, by what it is rather than what it is called (an ESRI ".prj"
// names systems its own way); 0 when PROJ finds no such system with
// confidence of at least 70. `readable` tells whether PROJ could build a
// system from the definition at all.
int IdentifyEpsgSystem(const QString& definition, bool& readable);

#endif
