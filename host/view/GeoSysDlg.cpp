#include "GeoSysDlg.h"

#include "GeoSystemIdentify.h"
#include "ui_GeoSysDlg.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QRegularExpression>
#include <QSortFilterProxyModel>

#include <proj.h>

#include <algorithm>

namespace {

struct GeoSystemEntry {
    int code = 0;
    QString digits; // the code as typed, for prefix search
    QString name;
    QString area;
};

QVector<GeoSystemEntry> loadEpsgSystems()
{
    QVector<GeoSystemEntry> systems;
    PJ_CONTEXT* context = proj_context_create();
    proj_log_level(context, PJ_LOG_NONE);
    PROJ_CRS_LIST_PARAMETERS* parameters = proj_get_crs_list_parameters_create();
    PJ_TYPE types[] = { PJ_TYPE_PROJECTED_CRS, PJ_TYPE_GEOGRAPHIC_2D_CRS };
    parameters->types = types;
    parameters->typesCount = 2;
    parameters->allow_deprecated = 0;
    int count = 0;
    PROJ_CRS_INFO** list = proj_get_crs_info_list_from_database(context, "EPSG", parameters, &count);
    systems.reserve(count);
    for (int i = 0; i < count; ++i) {
        GeoSystemEntry entry;
        entry.digits = QString::fromUtf8(list[i]->code);
        entry.code = entry.digits.toInt();
        if (entry.code <= 0)
            continue;
        entry.name = QString::fromUtf8(list[i]->name);
        if (list[i]->area_name)
            entry.area = QString::fromUtf8(list[i]->area_name);
        systems.append(entry);
    }
    proj_crs_info_list_destroy(list);
    proj_get_crs_list_parameters_destroy(parameters);
    proj_context_destroy(context);
    // The database orders codes as text; people expect 4326 before 25832.
    std::sort(systems.begin(), systems.end(),
        [](const GeoSystemEntry& a, const GeoSystemEntry& b) { return a.code < b.code; });
    return systems;
}

// Reading the registry takes a noticeable moment; the list does not change
// while the program runs.
const QVector<GeoSystemEntry>& epsgSystems()
{
    static const QVector<GeoSystemEntry> systems = loadEpsgSystems();
    return systems;
}

const GeoSystemEntry* findEntry(int code)
{
    const QVector<GeoSystemEntry>& systems = epsgSystems();
    auto found = std::lower_bound(systems.begin(), systems.end(), code,
        [](const GeoSystemEntry& entry, int wanted) { return entry.code < wanted; });
    return found != systems.end() && found->code == code ? &*found : nullptr;
}

const int codeRole = Qt::UserRole;

// Some areas of use list whole continents, over a thousand characters; the
// label keeps the beginning and the tooltip the rest.
QString shortened(const QString& text)
{
    const int maximum = 180;
    if (text.size() <= maximum)
        return text;
    int cut = text.lastIndexOf(QLatin1Char(' '), maximum);
    if (cut < maximum / 2)
        cut = maximum;
    return text.left(cut) + QChar(0x2026);
}

class GeoSystemListModel : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : epsgSystems().size(); }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 2; }

    QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid() || index.row() >= epsgSystems().size())
            return QVariant();
        const GeoSystemEntry& entry = epsgSystems().at(index.row());
        if (role == codeRole)
            return entry.code;
        if (role == Qt::DisplayRole)
            return index.column() == 0 ? QStringLiteral("EPSG:%1").arg(entry.code) : entry.name;
        return QVariant();
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return QVariant();
        return section == 0 ? QCoreApplication::translate("GeoSysDlg", "Code")
                            : QCoreApplication::translate("GeoSysDlg", "Name");
    }
};

} // namespace

// Digits (with or without "EPSG:") search the codes from the start, since
// people know codes by their leading digits; anything else searches the
// names, every word somewhere in the name, so "gauss 3" finds
// "DHDN / 3-degree Gauss-Kruger zone 3".
class GeoSystemFilterModel : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    void SetSearchText(const QString& text)
    {
        static const QRegularExpression codePattern(
            QStringLiteral("^(?:EPSG *:? *)?(\\d*)$"), QRegularExpression::CaseInsensitiveOption);
        const QString simplified = text.simplified();
        const QRegularExpressionMatch match = codePattern.match(simplified);
        byCode = match.hasMatch();
        codePrefix = byCode ? match.captured(1) : QString();
        words = byCode ? QStringList() : simplified.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex&) const override
    {
        const GeoSystemEntry& entry = epsgSystems().at(sourceRow);
        if (byCode)
            return entry.digits.startsWith(codePrefix);
        for (const QString& word : words) {
            if (!entry.name.contains(word, Qt::CaseInsensitive))
                return false;
        }
        return true;
    }

private:
    bool byCode = true;
    QString codePrefix;
    QStringList words;
};

GeoSysDlg::GeoSysDlg(QWidget* parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::GeoSysDlg>())
    , filter(new GeoSystemFilterModel(this))
{
    ui->setupUi(this);
    filter->setSourceModel(new GeoSystemListModel(this));
    ui->tvSystems->setModel(filter);
    QHeaderView* header = ui->tvSystems->header();
    header->setStretchLastSection(true);
    // Measuring 5,000 rows for the code column would cost more than it
    // tells: the widest code is known.
    header->resizeSection(0,
        qMax(ui->tvSystems->fontMetrics().horizontalAdvance(QStringLiteral("EPSG:000000")) + 24,
            header->sectionSizeHint(0)));

    // Room for the name and a shortened area of use, so that the list does
    // not jump while the user walks through it.
    ui->lblDescription->setMinimumHeight(4 * ui->lblDescription->fontMetrics().lineSpacing());

    connect(ui->edtSearch, &QLineEdit::textChanged, this, &GeoSysDlg::onSearchTextChanged);
    connect(ui->tvSystems->selectionModel(), &QItemSelectionModel::selectionChanged, this, &GeoSysDlg::showDescription);
    connect(ui->tvSystems, &QTreeView::doubleClicked, this, &GeoSysDlg::accept);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &GeoSysDlg::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &GeoSysDlg::reject);
    // The search field keeps the focus while the arrow keys walk the list.
    ui->edtSearch->installEventFilter(this);
    showDescription();
}

GeoSysDlg::~GeoSysDlg() = default;

void GeoSysDlg::SetGeoSystem(const GeoSystemSettings& system)
{
    initial = system;
    ui->edtSearch->clear();
    ui->tvSystems->selectionModel()->clearSelection();
    static const QRegularExpression epsgPattern(
        QStringLiteral("^\\s*EPSG\\s*:\\s*(\\d+)\\s*$"), QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = epsgPattern.match(system.ToString());
    int code = match.hasMatch() ? match.captured(1).toInt() : 0;
    if (!code && !system.IsNull()) {
        // A WKT or PROJJSON of a registry system is still that system.
        bool readable = false;
        code = IdentifyEpsgSystem(system.ToString(), readable);
    }
    if (code)
        selectCode(code);
    showDescription();
}

GeoSystemSettings GeoSysDlg::GetGeoSystem() const
{
    const int code = currentCode();
    return code ? GeoSystemSettings::FromEpsg(code) : initial;
}

bool GeoSysDlg::ChooseGeoSystem(QWidget* parent, GeoSystemSettings& system)
{
    GeoSysDlg dialog(parent);
    dialog.SetGeoSystem(system);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    system = dialog.GetGeoSystem();
    return true;
}

bool GeoSysDlg::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui->edtSearch && event->type() == QEvent::KeyPress) {
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            QCoreApplication::sendEvent(ui->tvSystems, event);
            return true;
        default:
            break;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void GeoSysDlg::onSearchTextChanged(const QString& text)
{
    const int kept = currentCode();
    filter->SetSearchText(text);
    if (kept && selectCode(kept))
        return;
    // Whoever types a search and presses Return means the first hit.
    if (!text.trimmed().isEmpty() && filter->rowCount() > 0) {
        const QModelIndex first = filter->index(0, 0);
        ui->tvSystems->selectionModel()->setCurrentIndex(
            first, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        ui->tvSystems->scrollToTop();
    } else {
        ui->tvSystems->selectionModel()->clear();
    }
    showDescription();
}

int GeoSysDlg::currentCode() const
{
    const QModelIndexList rows = ui->tvSystems->selectionModel()->selectedRows();
    return rows.isEmpty() ? 0 : rows.first().data(codeRole).toInt();
}

bool GeoSysDlg::selectCode(int code)
{
    const GeoSystemEntry* entry = findEntry(code);
    if (!entry)
        return false;
    const QModelIndex index
        = filter->mapFromSource(filter->sourceModel()->index(int(entry - epsgSystems().constData()), 0));
    if (!index.isValid())
        return false;
    ui->tvSystems->selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    ui->tvSystems->scrollTo(index, QAbstractItemView::PositionAtCenter);
    return true;
}

void GeoSysDlg::showDescription()
{
    QString text;
    QString fullArea;
    const GeoSystemEntry* entry = findEntry(currentCode());
    if (entry) {
        // The same line GetDescription gives, taken from the list: building
        // the system for every row the arrow keys pass would keep each one in
        // the thread's PROJ cache.
        text = QStringLiteral("%1 (EPSG:%2)").arg(entry->name).arg(entry->code);
        if (!entry->area.isEmpty()) {
            const QString area = tr("Area of use: %1").arg(entry->area);
            const QString shown = shortened(area);
            text += QLatin1Char('\n') + shown;
            if (shown != area)
                fullArea = area;
        }
    } else if (!initial.IsNull()) {
        text = initial.GetDescription();
    } else {
        text = tr("No geo system selected.");
    }
    ui->lblDescription->setText(text);
    ui->lblDescription->setToolTip(fullArea);
}
