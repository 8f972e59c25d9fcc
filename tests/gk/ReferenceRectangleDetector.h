#ifndef KAMO_TESTS_REFERENCERECTANGLEDETECTOR_H
#define KAMO_TESTS_REFERENCERECTANGLEDETECTOR_H

#include <gk/YPoint.h>

#include <QList>

// The rectangle search done the obvious way: every 4-combination of the
// points in lexicographic order, each put through the four-point test.
// O(n^4); the yardstick the fast search in the library is held to.
QList<QList<unsigned>> referenceRectangles(const QList<YPoint>& points);

#endif
