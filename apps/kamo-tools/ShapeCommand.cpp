#include "ShapeCommand.h"

#include <shapeimport/FieldAssignmentFile.h>
#include <shapeimport/ImportSheetDataFromShapeFile.h>
#include <shapeimport/ShapeDbFileReader.h>
#include <shapeimport/ShapeFileReader.h>
#include <shapeimport/ShapeImportJob.h>

#include <Kamo_view/BuildingObject.h>
#include <Kamo_view/DistrictPiece.h>
#include <Kamo_view/RoadObject.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <charconv>
#include <cmath>
#include <cstdio>

namespace {

QJsonArray pointsJson(const QVector<PointF>& points)
{
    QJsonArray list;
    for (const PointF& point : points)
        list.append(QJsonArray { point.X(), point.Y() });
    return list;
}

QJsonArray ringsJson(const QList<QVector<PointF>>& rings)
{
    QJsonArray list;
    for (const QVector<PointF>& ring : rings)
        list.append(pointsJson(ring));
    return list;
}

// JSON text of a string, quotes included, as UTF-8.
QByteArray jsonString(const QString& text)
{
    QByteArray json = "\"";
    for (const char c : text.toUtf8()) {
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            json += "\\u00";
            json += "0123456789abcdef"[(c >> 4) & 0xf];
            json += "0123456789abcdef"[c & 0xf];
        } else {
            json += c;
        }
    }
    return json + '"';
}

// The shortest text that reads back as the same double. JSON has no NaN or
// infinity: such a coordinate (a damaged file holds them) becomes null, as
// QJsonDocument writes it for the other kinds.
void appendNumber(QByteArray& json, double value)
{
    if (!std::isfinite(value)) {
        json += "null";
        return;
    }
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    json.append(buffer, int(end - buffer));
}

// Large results are written element by element: building one document of
// a hundred thousand sheets costs more than reading them.
void writeList(QTextStream& out, const QString& name, const QList<QJsonObject>& elements)
{
    out << "{\n  " << QString::fromUtf8(jsonString(name)) << ": [";
    for (int i = 0; i < elements.size(); ++i)
        out << (i ? ",\n    " : "\n    ") << QJsonDocument(elements.at(i)).toJson(QJsonDocument::Compact);
    out << (elements.isEmpty() ? "]\n}\n" : "\n  ]\n}\n");
}

// Built as bytes: formatting 100,000 sheets through a text stream costs
// more than importing them.
void writeScales(QTextStream& out, const QMap<int, QMap<QString, QList<PointF>>>& scales)
{
    QByteArray json = "{\n  \"scales\": {";
    int sheetCount = 0;
    for (const auto& sheets : scales)
        sheetCount += sheets.size();
    json.reserve(sheetCount * 120 + 100);
    for (auto scale = scales.cbegin(); scale != scales.cend(); ++scale) {
        json += scale == scales.cbegin() ? "\n    \"" : ",\n    \"";
        json += QByteArray::number(scale.key()) + "\": {";
        for (auto sheet = scale->cbegin(); sheet != scale->cend(); ++sheet) {
            json += sheet == scale->cbegin() ? "\n      " : ",\n      ";
            json += jsonString(sheet.key());
            json += ": [";
            const QList<PointF>& points = sheet.value();
            for (int i = 0; i < points.size(); ++i) {
                json += i ? ", [" : "[";
                appendNumber(json, points.at(i).X());
                json += ", ";
                appendNumber(json, points.at(i).Y());
                json += ']';
            }
            json += "]";
        }
        json += scale->isEmpty() ? "}" : "\n    }";
    }
    json += scales.isEmpty() ? "}\n}\n" : "\n  }\n}\n";
    out.flush();
    std::fwrite(json.constData(), 1, size_t(json.size()), stdout);
    std::fflush(stdout);
}

QString coordinate(double value)
{
    return QString::number(value, 'f', 3);
}

// The polygons of a shape file as named areas: "1", "2", ... by record.
bool readFilter(const QString& file, QMap<QString, QPainterPath>& areas)
{
    ShapeFileReader reader;
    if (reader.Open(QFile::encodeName(file)) != 0)
        return false;
    ShapeObject object;
    for (int i = 0; i < reader.GetEntityCount(); ++i) {
        if (reader.ReadObject(i, object) != 0)
            continue;
        QPainterPath area;
        area.setFillRule(Qt::OddEvenFill);
        for (int part = 0; part < object.GetParts().size(); ++part)
            area.addPolygon(QPolygonF(object.GetPartPoints(part)));
        if (!area.isEmpty())
            areas.insert(QString::number(i + 1), area);
    }
    return true;
}

QList<QCommandLineOption> importOptions()
{
    const auto valued = [](const char* name, const char* value) {
        return QCommandLineOption(QLatin1String(name), QString(), QLatin1String(value));
    };
    return { valued("dbf", "FILE"), valued("assign", "TARGET=COLUMN"), valued("assignments", "FILE"),
        valued("from", "CRS"), valued("to", "CRS"), valued("filter", "FILE"),
        QCommandLineOption(QStringLiteral("targets")), QCommandLineOption(QStringLiteral("correct-order")),
        valued("manual", "I,J"), valued("scale", "N"), QCommandLineOption(QStringLiteral("scale-from-table")),
        valued("page-text", "TEXT") };
}

// The import mode a kind of the command line names ("sheets", ...); -1 for
// none.
int importModeOf(const QString& kind)
{
    for (int mode = ShapeImportJob::imSheets; mode <= ShapeImportJob::imBuildings; ++mode) {
        if (ShapeImportJob::ImportModeName(mode).toLower() == kind)
            return mode;
    }
    return -1;
}

void writeResult(QTextStream& out, const ShapeImportJob& job)
{
    QList<QJsonObject> list;
    switch (job.GetImportMode()) {
    case ShapeImportJob::imRoutes:
        for (const RoadObject& road : job.GetRoads())
            list.append(QJsonObject { { QStringLiteral("id"), road.id }, { QStringLiteral("name"), road.name },
                { QStringLiteral("number"), road.number }, { QStringLiteral("variant"), road.variant },
                { QStringLiteral("lines"), ringsJson(road.lines) } });
        return writeList(out, QStringLiteral("routes"), list);
    case ShapeImportJob::imDistricts:
        for (const DistrictPiece& piece : job.GetDistrictPieces())
            list.append(QJsonObject { { QStringLiteral("number"), piece.number },
                { QStringLiteral("plotCode"), piece.normalisedNumber },
                { QStringLiteral("rings"), ringsJson(piece.rings) } });
        return writeList(out, QStringLiteral("districts"), list);
    case ShapeImportJob::imBuildings:
        for (const BuildingObject& b : job.GetBuildings())
            list.append(
                QJsonObject { { QStringLiteral("id"), b.id }, { QStringLiteral("districtNumber"), b.districtNumber },
                    { QStringLiteral("type"), b.type }, { QStringLiteral("ownerStreet"), b.ownerStreet },
                    { QStringLiteral("ownerHouseNumber"), b.ownerHouseNumber },
                    { QStringLiteral("ownerZipCode"), b.ownerZipCode }, { QStringLiteral("ownerTown"), b.ownerTown },
                    { QStringLiteral("street"), b.street }, { QStringLiteral("houseNumber"), b.houseNumber },
                    { QStringLiteral("zipCode"), b.zipCode }, { QStringLiteral("town"), b.town },
                    { QStringLiteral("district"), b.district }, { QStringLiteral("rings"), ringsJson(b.rings) } });
        return writeList(out, QStringLiteral("buildings"), list);
    default: {
        QMap<int, QMap<QString, QList<PointF>>> scales;
        job.GetScalesMap(scales);
        writeScales(out, scales);
    }
    }
}

} // namespace

ShapeCommand::ShapeCommand(QTextStream& out, QTextStream& err)
    : out(out)
    , err(err)
{ }

QString ShapeCommand::HelpText()
{
    return QStringLiteral("Usage: kamo-tools shape info FILE.shp\n"
                          "       kamo-tools shape import sheets|routes|districts|buildings FILE.shp [options]\n"
                          "\n"
                          "info: shape type, number of entities, bounds and the columns of the\n"
                          "attribute table.\n"
                          "\n"
                          "import: reads the objects as the host would and prints them as JSON.\n"
                          "  --dbf FILE              attribute table (default: beside FILE.shp)\n"
                          "  --assign TARGET=COLUMN  feed a target field (name or id) from a column;\n"
                          "                          may be given several times\n"
                          "  --assignments FILE      field assignments saved by the import dialog\n"
                          "  --from CRS --to CRS     geo systems of the file and of the project\n"
                          "                          (EPSG:31467, a PROJ string or WKT)\n"
                          "  --filter FILE.shp       keep only objects touching its polygons (routes,\n"
                          "                          districts, buildings; in the project's system)\n"
                          "  --targets               list the target fields of the kind and quit\n"
                          "Sheets only:\n"
                          "  --correct-order         label the corners along the route of sheet numbers\n"
                          "  --manual I,J            take the points I and J of each frame instead of\n"
                          "                          the four corners\n"
                          "  --scale N               fixed scale (default 1000)\n"
                          "  --scale-from-table      scale from the column assigned to SheetScale\n"
                          "  --page-text TEXT        appended to each sheet number after \"_\"\n"
                          "\n"
                          "Exit status: 0 done, 1 a file cannot be read, 2 wrong use.\n");
}

int ShapeCommand::usageError(const QString& message)
{
    err << "kamo-tools: " << message << "\nTry 'kamo-tools shape --help'.\n";
    err.flush();
    return UsageError;
}

int ShapeCommand::failure(const QString& message)
{
    err << "kamo-tools: " << message << "\n";
    err.flush();
    return Failure;
}

int ShapeCommand::Run(const QStringList& arguments)
{
    const QString action = arguments.value(1);
    if (action.isEmpty() || action == QLatin1String("-h") || action == QLatin1String("--help")) {
        (action.isEmpty() ? err : out) << HelpText();
        return action.isEmpty() ? UsageError : Success;
    }
    if (action == QLatin1String("info")) {
        if (arguments.size() != 3)
            return usageError(QStringLiteral("shape info takes one file"));
        return info(arguments.at(2));
    }
    if (action == QLatin1String("import"))
        return import(arguments);
    return usageError(QStringLiteral("unknown shape action '%1'").arg(action));
}

int ShapeCommand::info(const QString& file)
{
    if (!QFileInfo::exists(file))
        return failure(QStringLiteral("%1: no such file").arg(QDir::toNativeSeparators(file)));
    ShapeFileReader reader;
    if (reader.Open(QFile::encodeName(file)) != 0)
        return failure(QStringLiteral("%1: not a readable shape file").arg(QDir::toNativeSeparators(file)));
    const ShapeObject::Bounds bounds = reader.GetBounds();
    out << "File: " << QDir::toNativeSeparators(file) << "\n"
        << "Shape type: " << ShapeObject::ShapeTypeName(reader.GetShapeType()) << " (" << reader.GetShapeType() << ")\n"
        << "Entities: " << reader.GetEntityCount() << "\n"
        << "Bounds: (" << coordinate(bounds.minX) << ", " << coordinate(bounds.minY) << ") - ("
        << coordinate(bounds.maxX) << ", " << coordinate(bounds.maxY) << ")\n";

    const QString dbFile = MakeShapeDbFilenameFromShapeFilename(file);
    ShapeDbFileReader table;
    if (table.Open(QFile::encodeName(dbFile)) != 0) {
        out << "Attribute table: none (" << QDir::toNativeSeparators(dbFile) << " cannot be read)\n";
        return Success;
    }
    out << "Attribute table: " << QDir::toNativeSeparators(dbFile) << " (" << (table.IsUtf8() ? "UTF-8" : "Latin-1")
        << ")\n";
    for (int i = 0; i < table.GetFieldCount(); ++i) {
        const ShapeDbFileReader::FieldInfo field = table.GetFieldInfo(i);
        out << "  " << field.name << ": " << field.type << " (" << field.width << "." << field.decimals << ")\n";
    }
    return Success;
}

int ShapeCommand::import(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions(importOptions());
    if (!parser.parse(arguments))
        return usageError(parser.errorText());
    // The parser takes "shape" for the program: import KIND FILE remain.
    const QStringList positional = parser.positionalArguments();
    const QString kind = positional.value(1);
    const int mode = importModeOf(kind);
    if (mode < 0)
        return usageError(QStringLiteral("import what: sheets, routes, districts or buildings?"));
    ShapeImportJob job(static_cast<ShapeImportJob::ImportMode>(mode));
    if (parser.isSet(QStringLiteral("targets"))) {
        const QMap<int, QString>& targets = job.GetTargetFields();
        for (auto it = targets.cbegin(); it != targets.cend(); ++it)
            out << it.key() << "\t" << it.value() << "\n";
        return Success;
    }
    if (positional.size() != 3)
        return usageError(QStringLiteral("shape import %1 takes one shape file").arg(kind));

    const QString file = positional.at(2);
    int code = chooseFiles(parser, file, job);
    if (code == Success)
        code = chooseAssignments(parser, kind, job);
    if (code == Success)
        code = chooseOptions(parser, job);
    if (code != Success)
        return code;
    if (!job.Run())
        return failure(QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), job.GetLastErrorMessage()));
    for (const QString& warning : job.GetWarnings())
        err << "kamo-tools: warning: " << warning << "\n";
    err.flush();
    writeResult(out, job);
    return Success;
}

int ShapeCommand::chooseFiles(const QCommandLineParser& parser, const QString& file, ShapeImportJob& job)
{
    const QString dbFile = parser.value(QStringLiteral("dbf"));
    for (const QString& name :
        parser.isSet(QStringLiteral("dbf")) ? QStringList { file, dbFile } : QStringList { file }) {
        if (!QFileInfo::exists(name))
            return failure(QStringLiteral("%1: no such file").arg(QDir::toNativeSeparators(name)));
    }
    job.SetFiles(file, dbFile);
    return Success;
}

int ShapeCommand::chooseAssignments(const QCommandLineParser& parser, const QString& kind, ShapeImportJob& job)
{
    // A saved file may come from another table or kind: what does not fit
    // is named and left out.
    if (parser.isSet(QStringLiteral("assignments"))) {
        const QString file = parser.value(QStringLiteral("assignments"));
        QMap<QString, int> saved;
        const FieldAssignmentFile::Status status = FieldAssignmentFile::Read(file, saved);
        if (status != FieldAssignmentFile::Ok)
            return failure(
                QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), FieldAssignmentFile::StatusText(status)));
        for (auto it = saved.cbegin(); it != saved.cend(); ++it) {
            const ShapeImportJob::AssignmentCheck check = job.Assign(it.value(), it.key());
            if (check == ShapeImportJob::acUnknownTarget)
                err << "kamo-tools: warning: " << kind << " have no target field " << it.value() << " (column "
                    << it.key() << ")\n";
            else if (check == ShapeImportJob::acUnknownColumn)
                err << "kamo-tools: warning: the attribute table has no column " << it.key() << "\n";
        }
    }
    // What the user typed must fit.
    for (const QString& assignment : parser.values(QStringLiteral("assign"))) {
        const int equals = assignment.indexOf(QLatin1Char('='));
        const QString target = assignment.left(equals);
        bool isNumber = false;
        int id = target.toInt(&isNumber);
        if (!isNumber)
            id = job.GetTargetFields().key(target, -1);
        const QString column = assignment.mid(equals + 1);
        const ShapeImportJob::AssignmentCheck check = job.Assign(equals < 0 ? -1 : id, column);
        if (check == ShapeImportJob::acUnknownTarget)
            return usageError(
                QStringLiteral("'%1': no target field '%2' for %3 (see --targets)").arg(assignment, target, kind));
        if (check == ShapeImportJob::acUnknownColumn)
            return usageError(QStringLiteral("'%1': the attribute table has no column '%2'").arg(assignment, column));
    }
    return Success;
}

int ShapeCommand::chooseOptions(const QCommandLineParser& parser, ShapeImportJob& job)
{
    if (parser.isSet(QStringLiteral("from")) != parser.isSet(QStringLiteral("to")))
        return usageError(QStringLiteral("--from and --to go together"));
    if (parser.isSet(QStringLiteral("from"))) {
        const GeoSystemSettings from = GeoSystemSettings::FromDefinition(parser.value(QStringLiteral("from")));
        const GeoSystemSettings to = GeoSystemSettings::FromDefinition(parser.value(QStringLiteral("to")));
        for (const auto& [system, option] : { std::pair { from, "from" }, std::pair { to, "to" } }) {
            if (!system.IsValid())
                return usageError(
                    QStringLiteral("--%1: unknown geo system '%2'").arg(QLatin1String(option), system.ToString()));
        }
        job.SetGeoSystemForImportFile(from);
        job.SetGeoSystemForProject(to);
    }
    if (parser.isSet(QStringLiteral("filter"))) {
        const QString filter = parser.value(QStringLiteral("filter"));
        auto areas = QSharedPointer<QMap<QString, QPainterPath>>::create();
        if (!readFilter(filter, *areas))
            return failure(QStringLiteral("%1: not a readable shape file").arg(QDir::toNativeSeparators(filter)));
        job.SetGeoFilter(areas);
    }
    // The sheet options are not even read for the other kinds.
    if (job.GetImportMode() != ShapeImportJob::imSheets)
        return Success;
    job.SetPageAdditionalText(parser.value(QStringLiteral("page-text")));
    job.SetCorrectVertexOrder(parser.isSet(QStringLiteral("correct-order")));
    if (parser.isSet(QStringLiteral("manual"))) {
        const QStringList indices = parser.value(QStringLiteral("manual")).split(QLatin1Char(','));
        bool ok1 = false;
        bool ok2 = false;
        const int first = indices.value(0).toInt(&ok1);
        const int second = indices.value(1).toInt(&ok2);
        if (indices.size() != 2 || !ok1 || !ok2)
            return usageError(QStringLiteral("--manual takes two point indices, like 0,2"));
        job.SetPointSelectMode(ImportSheetDataFromShapeFile::spsmManual);
        job.SetIndexForPoint1(first);
        job.SetIndexForPoint2(second);
    }
    if (parser.isSet(QStringLiteral("scale"))) {
        bool isNumber = false;
        job.SetFixedScale(parser.value(QStringLiteral("scale")).toInt(&isNumber));
        if (!isNumber)
            return usageError(QStringLiteral("--scale takes a number, like 2500"));
    }
    if (parser.isSet(QStringLiteral("scale-from-table")))
        job.SetScaleImportMode(ImportSheetDataFromShapeFile::ssimFromTable);
    return Success;
}
