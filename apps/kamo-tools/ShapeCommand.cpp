#include "ShapeCommand.h"

#include <shapeimport/FieldAssignmentFile.h>
#include <shapeimport/ImportBuildingFromShapeFile.h>
#include <shapeimport/ImportDistrictsFromShapeFile.h>
#include <shapeimport/ImportFieldManager.h>
#include <shapeimport/ImportRouteDataFromShapeFile.h>
#include <shapeimport/ImportSheetDataFromShapeFile.h>
#include <shapeimport/ShapeDbFileReader.h>
#include <shapeimport/ShapeFileReader.h>

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
#include <memory>

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
    const QCommandLineOption dbfOption(QStringLiteral("dbf"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption assignOption(QStringLiteral("assign"), QString(), QStringLiteral("TARGET=COLUMN"));
    const QCommandLineOption assignmentsOption(QStringLiteral("assignments"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption fromOption(QStringLiteral("from"), QString(), QStringLiteral("CRS"));
    const QCommandLineOption toOption(QStringLiteral("to"), QString(), QStringLiteral("CRS"));
    const QCommandLineOption filterOption(QStringLiteral("filter"), QString(), QStringLiteral("FILE"));
    const QCommandLineOption targetsOption(QStringLiteral("targets"));
    const QCommandLineOption correctOption(QStringLiteral("correct-order"));
    const QCommandLineOption manualOption(QStringLiteral("manual"), QString(), QStringLiteral("I,J"));
    const QCommandLineOption scaleOption(QStringLiteral("scale"), QString(), QStringLiteral("N"));
    const QCommandLineOption scaleTableOption(QStringLiteral("scale-from-table"));
    const QCommandLineOption pageTextOption(QStringLiteral("page-text"), QString(), QStringLiteral("TEXT"));
    parser.addOptions({ dbfOption, assignOption, assignmentsOption, fromOption, toOption, filterOption, targetsOption,
        correctOption, manualOption, scaleOption, scaleTableOption, pageTextOption });
    if (!parser.parse(arguments))
        return usageError(parser.errorText());

    // The parser takes "shape" for the program: import KIND FILE remain.
    const QStringList positional = parser.positionalArguments();
    const QString kind = positional.value(1);
    std::unique_ptr<ShapeFileImporter> importer;
    if (kind == QLatin1String("sheets"))
        importer = std::make_unique<ImportSheetDataFromShapeFile>();
    else if (kind == QLatin1String("routes"))
        importer = std::make_unique<ImportRouteDataFromShapeFile>();
    else if (kind == QLatin1String("districts"))
        importer = std::make_unique<ImportDistrictsFromShapeFile>();
    else if (kind == QLatin1String("buildings"))
        importer = std::make_unique<ImportBuildingFromShapeFile>();
    else
        return usageError(QStringLiteral("import what: sheets, routes, districts or buildings?"));
    ImportFieldManager* fields = importer->GetImportFieldManager();
    const QMap<int, QString>& targets = fields->GetTargetFields();

    if (parser.isSet(targetsOption)) {
        for (auto it = targets.cbegin(); it != targets.cend(); ++it)
            out << it.key() << "\t" << it.value() << "\n";
        return Success;
    }
    if (positional.size() != 3)
        return usageError(QStringLiteral("shape import %1 takes one shape file").arg(kind));
    const QString file = positional.at(2);
    if (!QFileInfo::exists(file))
        return failure(QStringLiteral("%1: no such file").arg(QDir::toNativeSeparators(file)));
    importer->SetShapeFilename(file);
    const QString dbFile
        = parser.isSet(dbfOption) ? parser.value(dbfOption) : MakeShapeDbFilenameFromShapeFilename(file);
    if (parser.isSet(dbfOption)) {
        if (!QFileInfo::exists(dbFile))
            return failure(QStringLiteral("%1: no such file").arg(QDir::toNativeSeparators(dbFile)));
        importer->SetShapeDbFilename(dbFile);
    }
    QVector<QString> columns;
    GetAvailableFieldNames(dbFile, columns);

    if (parser.isSet(assignmentsOption)) {
        QMap<QString, int> saved;
        const FieldAssignmentFile::Status status = FieldAssignmentFile::Read(parser.value(assignmentsOption), saved);
        if (status != FieldAssignmentFile::Ok)
            return failure(QStringLiteral("%1: %2").arg(
                QDir::toNativeSeparators(parser.value(assignmentsOption)), FieldAssignmentFile::StatusText(status)));
        for (auto it = saved.cbegin(); it != saved.cend(); ++it) {
            if (!targets.contains(it.value()))
                err << "kamo-tools: warning: " << kind << " have no target field " << it.value() << " (column "
                    << it.key() << ")\n";
            else if (!columns.contains(it.key()))
                err << "kamo-tools: warning: the attribute table has no column " << it.key() << "\n";
            else
                fields->SetAssignment(it.value(), it.key());
        }
    }
    for (const QString& assignment : parser.values(assignOption)) {
        const int equals = assignment.indexOf(QLatin1Char('='));
        const QString target = assignment.left(equals);
        const QString column = assignment.mid(equals + 1);
        bool isNumber = false;
        int id = target.toInt(&isNumber);
        if (!isNumber)
            id = targets.key(target, -1);
        if (equals < 0 || !targets.contains(id))
            return usageError(
                QStringLiteral("'%1': no target field '%2' for %3 (see --targets)").arg(assignment, target, kind));
        if (!columns.contains(column))
            return usageError(QStringLiteral("'%1': the attribute table has no column '%2'").arg(assignment, column));
        fields->SetAssignment(id, column);
    }

    if (parser.isSet(fromOption) != parser.isSet(toOption))
        return usageError(QStringLiteral("--from and --to go together"));
    if (parser.isSet(fromOption)) {
        const GeoSystemSettings from = GeoSystemSettings::FromDefinition(parser.value(fromOption));
        const GeoSystemSettings to = GeoSystemSettings::FromDefinition(parser.value(toOption));
        for (const auto& [system, option] : { std::pair { from, fromOption }, std::pair { to, toOption } }) {
            if (!system.IsValid())
                return usageError(QStringLiteral("--%1: unknown geo system '%2'")
                                      .arg(option.names().constFirst(), system.ToString()));
        }
        importer->SetGeoSystemForImportFile(from);
        importer->SetGeoSystemForProject(to);
    }
    if (parser.isSet(filterOption)) {
        auto areas = QSharedPointer<QMap<QString, QPainterPath>>::create();
        if (!readFilter(parser.value(filterOption), *areas))
            return failure(QStringLiteral("%1: not a readable shape file")
                               .arg(QDir::toNativeSeparators(parser.value(filterOption))));
        importer->SetGeoFilter(areas);
    }
    importer->SetPageAdditionalText(parser.value(pageTextOption));

    QString listName;
    QList<QJsonObject> list;
    QMap<int, QMap<QString, QList<PointF>>> scales;
    bool ok = false;
    if (auto* sheets = dynamic_cast<ImportSheetDataFromShapeFile*>(importer.get())) {
        sheets->SetCorrectVertexOrder(parser.isSet(correctOption));
        if (parser.isSet(manualOption)) {
            const QStringList indices = parser.value(manualOption).split(QLatin1Char(','));
            bool ok1 = false;
            bool ok2 = false;
            const int first = indices.value(0).toInt(&ok1);
            const int second = indices.value(1).toInt(&ok2);
            if (indices.size() != 2 || !ok1 || !ok2)
                return usageError(QStringLiteral("--manual takes two point indices, like 0,2"));
            sheets->SetPointSelectMode(ImportSheetDataFromShapeFile::spsmManual);
            sheets->SetIndexForPoint1(first);
            sheets->SetIndexForPoint2(second);
        }
        if (parser.isSet(scaleOption)) {
            bool isNumber = false;
            sheets->SetFixedScale(parser.value(scaleOption).toInt(&isNumber));
            if (!isNumber)
                return usageError(QStringLiteral("--scale takes a number, like 2500"));
        }
        if (parser.isSet(scaleTableOption))
            sheets->SetScaleImportMode(ImportSheetDataFromShapeFile::ssimFromTable);
        ok = sheets->Execute();
        sheets->GetScalesMap(scales);
    } else if (auto* routes = dynamic_cast<ImportRouteDataFromShapeFile*>(importer.get())) {
        ok = routes->Execute() && routes->GetLastErrorMessage().isEmpty();
        listName = QStringLiteral("routes");
        for (const RoadObject& road : routes->GetRoads())
            list.append(QJsonObject { { QStringLiteral("id"), road.id }, { QStringLiteral("name"), road.name },
                { QStringLiteral("number"), road.number }, { QStringLiteral("variant"), road.variant },
                { QStringLiteral("lines"), ringsJson(road.lines) } });
    } else if (auto* districts = dynamic_cast<ImportDistrictsFromShapeFile*>(importer.get())) {
        ok = districts->Execute();
        listName = QStringLiteral("districts");
        for (const DistrictPiece& piece : districts->GetDistrictPieces())
            list.append(QJsonObject { { QStringLiteral("number"), piece.number },
                { QStringLiteral("plotCode"), piece.normalisedNumber },
                { QStringLiteral("rings"), ringsJson(piece.rings) } });
    } else if (auto* buildings = dynamic_cast<ImportBuildingFromShapeFile*>(importer.get())) {
        ok = buildings->Execute();
        listName = QStringLiteral("buildings");
        for (const BuildingObject& b : buildings->GetBuildings())
            list.append(
                QJsonObject { { QStringLiteral("id"), b.id }, { QStringLiteral("districtNumber"), b.districtNumber },
                    { QStringLiteral("type"), b.type }, { QStringLiteral("ownerStreet"), b.ownerStreet },
                    { QStringLiteral("ownerHouseNumber"), b.ownerHouseNumber },
                    { QStringLiteral("ownerZipCode"), b.ownerZipCode }, { QStringLiteral("ownerTown"), b.ownerTown },
                    { QStringLiteral("street"), b.street }, { QStringLiteral("houseNumber"), b.houseNumber },
                    { QStringLiteral("zipCode"), b.zipCode }, { QStringLiteral("town"), b.town },
                    { QStringLiteral("district"), b.district }, { QStringLiteral("rings"), ringsJson(b.rings) } });
    }
    if (!ok)
        return failure(QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(file), importer->GetLastErrorMessage()));
    for (const QString& warning : importer->GetWarnings())
        err << "kamo-tools: warning: " << warning << "\n";
    err.flush();
    if (listName.isEmpty())
        writeScales(out, scales);
    else
        writeList(out, listName, list);
    return Success;
}
