#ifndef KAMO_BENCH_SHEETDRAWINGTEXT_H
#define KAMO_BENCH_SHEETDRAWINGTEXT_H

#include <QByteArray>

// A DXF drawing of `inserts` sheet frames along a route of rows from west to
// east, each insert of its own block with one closed frame polyline (400 x
// 280, in world coordinates, inserted at the origin), some frames with extra
// vertices on a side, each insert with a sheet number and one more
// attribute. `rows` rows; 0 for four from 1,000 inserts on, two below.
QByteArray SheetDrawingText(int inserts, int rows = 0);

// The sheet number insert `i` carries.
QByteArray SheetDrawingNumber(int i);

#endif
