#include "GeoSystemSettings.h"

#include "GeoSystemIdentify.h"

#include <QDebug>
#include <QFile>
#include <QHash>
#include <QPolygonF>

#include <proj.h>

#include <cmath>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace {

// What a pair of systems is converted with, decided once for the pair.
struct Transformation {
    PJ* operation = nullptr;
    bool identity = false;
    QString name;
    QString error; // not empty: the pair cannot be converted at all
};

// PROJ objects are neither cheap to build nor safe to share between
// threads, so every thread keeps its own context and builds each system and
// each pair once.
class ProjCache
{
public:
    ProjCache()
        : context(proj_context_create())
    {
        // Failures reach the caller through GeoSystemLastError; PROJ's own
        // messages on stderr would only duplicate them.
        proj_log_level(context, PJ_LOG_NONE);
    }
    ~ProjCache()
    {
        for (auto& pair : pairs)
            proj_destroy(pair.second->operation);
        for (PJ* crs : systems)
            proj_destroy(crs);
        proj_context_destroy(context);
    }
    ProjCache(const ProjCache&) = delete;
    ProjCache& operator=(const ProjCache&) = delete;

    PJ* Crs(const QString& definition)
    {
        auto found = systems.constFind(definition);
        if (found != systems.constEnd())
            return found.value();
        PJ* crs = create(definition);
        // A bare PROJ string describes an operation unless it says it is a
        // system; people write them without "+type=crs" all the time.
        if (!crs && definition.trimmed().startsWith(QLatin1Char('+'))
            && !definition.contains(QLatin1String("type=crs")))
            crs = create(definition + QLatin1String(" +type=crs"));
        systems.insert(definition, crs);
        return crs;
    }

    const Transformation& Pair(const QString& from, const QString& to)
    {
        // Conversions come in long runs of the same pair.
        if (last && lastKey.first == from && lastKey.second == to)
            return *last;
        auto key = std::make_pair(from, to);
        auto found = pairs.find(key);
        if (found == pairs.end())
            found = pairs.emplace(key, build(from, to)).first;
        lastKey = key;
        last = found->second.get();
        return *last;
    }

    bool Equivalent(PJ* a, PJ* b) { return proj_is_equivalent_to_with_ctx(context, a, b, PJ_COMP_EQUIVALENT) != 0; }

    PJ_CONTEXT* context;

private:
    PJ* create(const QString& definition)
    {
        PJ* object = proj_create(context, definition.toUtf8().constData());
        if (object && !proj_is_crs(object)) {
            proj_destroy(object);
            object = nullptr;
        }
        return object;
    }

    std::unique_ptr<Transformation> build(const QString& from, const QString& to);

    QHash<QString, PJ*> systems;
    std::map<std::pair<QString, QString>, std::unique_ptr<Transformation>> pairs;
    std::pair<QString, QString> lastKey;
    Transformation* last = nullptr;
};

QString label(const QString& definition)
{
    const QString text = definition.simplified();
    return text.size() <= 60 ? text : text.left(57) + QLatin1String("...");
}

std::unique_ptr<Transformation> ProjCache::build(const QString& from, const QString& to)
{
    auto result = std::make_unique<Transformation>();
    PJ* source = Crs(from);
    PJ* target = Crs(to);
    if (!source || !target) {
        result->error = QStringLiteral("unknown geo system %1").arg(label(source ? to : from));
        return result;
    }
    if (Equivalent(source, target)) {
        result->identity = true;
        return result;
    }
    // proj_create_crs_to_crs would pick an operation per point by its area
    // of use, so neighbouring points could be shifted by different datum
    // transformations and a drawing would tear apart at an area boundary.
    // One operation, the most accurate one whose grids are present, for the
    // whole pair keeps the geometry consistent.
    PJ_OPERATION_FACTORY_CONTEXT* factory = proj_create_operation_factory_context(context, nullptr);
    proj_operation_factory_context_set_grid_availability_use(
        context, factory, PROJ_GRID_AVAILABILITY_DISCARD_OPERATION_IF_MISSING_GRID);
    proj_operation_factory_context_set_spatial_criterion(context, factory, PROJ_SPATIAL_CRITERION_PARTIAL_INTERSECTION);
    PJ_OBJ_LIST* operations = proj_create_operations(context, source, target, factory);
    const int count = operations ? proj_list_get_count(operations) : 0;
    for (int i = 0; i < count && !result->operation; ++i) {
        PJ* operation = proj_list_get(context, operations, i);
        if (operation && proj_coordoperation_is_instantiable(context, operation)) {
            // Registries put latitude or northing first for many systems;
            // the host always has x east and y north.
            result->operation = proj_normalize_for_visualization(context, operation);
            result->name = QString::fromUtf8(proj_get_name(operation));
        }
        proj_destroy(operation);
    }
    proj_list_destroy(operations);
    proj_operation_factory_context_destroy(factory);
    if (!result->operation)
        result->error = QStringLiteral("no transformation from %1 to %2").arg(label(from), label(to));
    return result;
}

ProjCache& projCache()
{
    thread_local ProjCache cache;
    return cache;
}

thread_local QString lastError;

bool succeed()
{
    if (!lastError.isEmpty())
        lastError.clear();
    return true;
}

bool fail(const QString& message, bool reportFailures)
{
    lastError = message;
    if (reportFailures)
        qWarning().noquote() << message;
    return false;
}

// Null on either side: the data is not georeferenced, nothing to convert.
const Transformation* transformationFor(const GeoSystemSettings& from, const GeoSystemSettings& to)
{
    if (from.IsNull() || to.IsNull())
        return nullptr;
    return &projCache().Pair(from.ToString(), to.ToString());
}

// Converts interleaved x, y values in place, all or nothing.
bool convertInterleaved(std::vector<double>& xy, const GeoSystemSettings& from, const GeoSystemSettings& to,
    bool reportFailures, bool& changed)
{
    changed = false;
    const Transformation* transformation = transformationFor(from, to);
    if (!transformation || transformation->identity || xy.empty())
        return succeed();
    if (!transformation->error.isEmpty())
        return fail(transformation->error, reportFailures);
    PJ* operation = transformation->operation;
    const size_t count = xy.size() / 2;
    const size_t stride = 2 * sizeof(double);
    proj_errno_reset(operation);
    proj_trans_generic(
        operation, PJ_FWD, xy.data(), stride, count, xy.data() + 1, stride, count, nullptr, 0, 0, nullptr, 0, 0);
    const int error = proj_errno(operation);
    for (size_t i = 0; i < count; ++i) {
        if (error || !std::isfinite(xy[2 * i]) || !std::isfinite(xy[2 * i + 1])) {
            return fail(QStringLiteral("cannot convert %1 points from %2 to %3: %4")
                            .arg(count)
                            .arg(label(from.ToString()), label(to.ToString()),
                                error ? QString::fromUtf8(proj_context_errno_string(projCache().context, error))
                                      : QStringLiteral("point %1 has no result").arg(i)),
                reportFailures);
        }
    }
    changed = true;
    return succeed();
}

} // namespace

GeoSystemSettings::GeoSystemSettings() = default;

GeoSystemSettings GeoSystemSettings::FromEpsg(int code)
{
    return FromDefinition(QStringLiteral("EPSG:%1").arg(code));
}

GeoSystemSettings GeoSystemSettings::FromDefinition(const QString& definition)
{
    GeoSystemSettings settings;
    // Blank is how settings files say "not set".
    if (!definition.trimmed().isEmpty())
        settings.definition = definition;
    return settings;
}

GeoSystemSettings GeoSystemSettings::FromPrjFile(const QString& path)
{
    QFile file(path);
    // A projection file is a line of WKT; anything much larger is not one,
    // and reading it whole would only waste memory.
    const qint64 maximumSize = 1 << 20;
    if (!file.open(QIODevice::ReadOnly) || file.size() > maximumSize)
        return GeoSystemSettings();
    QString text = QString::fromUtf8(file.readAll());
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    text = text.trimmed();
    if (text.isEmpty())
        return GeoSystemSettings();
    bool readable = false;
    const int code = IdentifyEpsgSystem(text, readable);
    if (code > 0)
        return FromEpsg(code);
    return readable ? FromDefinition(text) : GeoSystemSettings();
}

void GeoSystemSettings::SetNull()
{
    definition.clear();
}

bool GeoSystemSettings::IsNull() const
{
    return definition.isEmpty();
}

bool GeoSystemSettings::IsEqual(const GeoSystemSettings& other) const
{
    if (IsNull() || other.IsNull())
        return IsNull() && other.IsNull();
    if (definition == other.definition)
        return true;
    ProjCache& cache = projCache();
    PJ* mine = cache.Crs(definition);
    PJ* theirs = cache.Crs(other.definition);
    if (mine && theirs)
        return cache.Equivalent(mine, theirs);
    return definition.trimmed() == other.definition.trimmed();
}

QString GeoSystemSettings::ToString() const
{
    return definition;
}

GeoSystemSettings GeoSystemSettings::FromString(const QString& text)
{
    return FromDefinition(text);
}

bool GeoSystemSettings::IsValid() const
{
    return !IsNull() && projCache().Crs(definition);
}

QString GeoSystemSettings::GetDescription() const
{
    if (IsNull())
        return QString();
    PJ* crs = projCache().Crs(definition);
    if (!crs)
        return label(definition);
    QString description = QString::fromUtf8(proj_get_name(crs));
    const char* authority = proj_get_id_auth_name(crs, 0);
    const char* code = proj_get_id_code(crs, 0);
    if (authority && code)
        description += QStringLiteral(" (%1:%2)").arg(QString::fromUtf8(authority), QString::fromUtf8(code));
    return description;
}

int IdentifyEpsgSystem(const QString& definition, bool& readable)
{
    PJ_CONTEXT* context = projCache().context;
    // Not through the cache: the texts come from files and would stay in
    // memory for the life of the thread.
    PJ* crs = proj_create(context, definition.toUtf8().constData());
    readable = crs && proj_is_crs(crs);
    int code = 0;
    if (readable) {
        int* confidences = nullptr;
        PJ_OBJ_LIST* matches = proj_identify(context, crs, "EPSG", nullptr, &confidences);
        const int count = matches ? proj_list_get_count(matches) : 0;
        // Best matches come first. Below 70 PROJ only found something
        // similar, e.g. the same projection on another datum.
        for (int i = 0; i < count && !code && confidences[i] >= 70; ++i) {
            PJ* match = proj_list_get(context, matches, i);
            const PJ_TYPE type = match ? proj_get_type(match) : PJ_TYPE_UNKNOWN;
            const char* id = match ? proj_get_id_code(match, 0) : nullptr;
            if (id && (type == PJ_TYPE_PROJECTED_CRS || type == PJ_TYPE_GEOGRAPHIC_2D_CRS))
                code = QByteArray(id).toInt();
            proj_destroy(match);
        }
        proj_int_list_destroy(confidences);
        proj_list_destroy(matches);
    }
    proj_destroy(crs);
    return code;
}

bool ChangeGeoSystemEx(
    double& x, double& y, const GeoSystemSettings& from, const GeoSystemSettings& to, bool reportFailures)
{
    const Transformation* transformation = transformationFor(from, to);
    if (!transformation || transformation->identity)
        return succeed();
    if (!transformation->error.isEmpty())
        return fail(transformation->error, reportFailures);
    PJ* operation = transformation->operation;
    proj_errno_reset(operation);
    const PJ_COORD result = proj_trans(operation, PJ_FWD, proj_coord(x, y, 0, HUGE_VAL));
    const int error = proj_errno(operation);
    if (error || !std::isfinite(result.xy.x) || !std::isfinite(result.xy.y)) {
        return fail(QStringLiteral("cannot convert (%1, %2) from %3 to %4: %5")
                        .arg(x, 0, 'f', 3)
                        .arg(y, 0, 'f', 3)
                        .arg(label(from.ToString()), label(to.ToString()),
                            error ? QString::fromUtf8(proj_context_errno_string(projCache().context, error))
                                  : QStringLiteral("no result")),
            reportFailures);
    }
    x = result.xy.x;
    y = result.xy.y;
    return succeed();
}

bool ChangeGeoSystemEx(
    QVector<PointF>& points, const GeoSystemSettings& from, const GeoSystemSettings& to, bool reportFailures)
{
    std::vector<double> xy;
    xy.reserve(2 * size_t(points.size()));
    for (const PointF& point : qAsConst(points)) {
        xy.push_back(point.X());
        xy.push_back(point.Y());
    }
    bool changed = false;
    if (!convertInterleaved(xy, from, to, reportFailures, changed))
        return false;
    if (changed) {
        for (int i = 0; i < points.size(); ++i)
            points[i] = PointF(xy[2 * size_t(i)], xy[2 * size_t(i) + 1]);
    }
    return true;
}

bool ChangeGeoSystemEx(
    QPolygonF& points, const GeoSystemSettings& from, const GeoSystemSettings& to, bool reportFailures)
{
    std::vector<double> xy;
    xy.reserve(2 * size_t(points.size()));
    for (const QPointF& point : qAsConst(points)) {
        xy.push_back(point.x());
        xy.push_back(point.y());
    }
    bool changed = false;
    if (!convertInterleaved(xy, from, to, reportFailures, changed))
        return false;
    if (changed) {
        for (int i = 0; i < points.size(); ++i)
            points[i] = QPointF(xy[2 * size_t(i)], xy[2 * size_t(i) + 1]);
    }
    return true;
}

QString GeoSystemOperationName(const GeoSystemSettings& from, const GeoSystemSettings& to)
{
    const Transformation* transformation = transformationFor(from, to);
    return transformation ? transformation->name : QString();
}

QString GeoSystemLastError()
{
    return lastError;
}
