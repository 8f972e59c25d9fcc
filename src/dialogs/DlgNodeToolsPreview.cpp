#include "dialogs/DlgNodeToolsPreview.h"

#include "ui_DlgNodeToolsPreview.h"

#include "nodetools/AnnotationFileIO.h"
#include "nodetools/AnnotationFileProcessor.h"
#include "nodetools/BlockNodeTool.h"
#include "nodetools/LineDiff.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QPushButton>

namespace {

// Unchanged lines shown around a change; longer unchanged runs fold.
constexpr int contextLines = 3;

const char removedColour[] = "#ffe1e1";
const char addedColour[] = "#dcf4dc";
const char emptyColour[] = "#f0f0f0";

// A line as HTML that shows what a reader of links needs to see: the field
// separators of link values as visible marks followed by a place to wrap,
// and places to wrap in paths too, so that a long value fits the column.
QString readable(const QString& line)
{
    QString html;
    html.reserve(line.size() + line.size() / 4);
    const auto mark = [&html](const char* colour, QChar symbol) {
        html += QStringLiteral("<span style=\"color:%1; font-weight:bold\">").arg(QLatin1String(colour));
        html += symbol;
        html += QStringLiteral("</span>&#8203;");
    };
    for (const QChar c : line) {
        switch (c.unicode()) {
        case 0x11: // between the fields of a link target
            mark("#c05800", QChar(0x00A6));
            break;
        case 0x12: // between the targets of a split link
            mark("#1f5fbf", QChar(0x2016));
            break;
        case 0x13: // between the zones of a path or page list
            mark("#7a6a00", QChar(0x2506));
            break;
        case '<':
            html += QLatin1String("&lt;");
            break;
        case '>':
            html += QLatin1String("&gt;");
            break;
        case '&':
            html += QLatin1String("&amp;");
            break;
        case '\\':
        case '/':
            html += c;
            html += QLatin1String("&#8203;");
            break;
        default:
            // Other control characters would vanish: their picture instead.
            if (c.unicode() < 0x20 && c != QLatin1Char('\t'))
                html += QChar(0x2400 + c.unicode());
            else
                html += c;
        }
    }
    return html;
}

QString cell(const QStringList& lines, int line, const char* colour)
{
    if (line < 0)
        return QStringLiteral("<td width=\"1%\"></td><td bgcolor=\"%1\" width=\"49%\"></td>")
            .arg(QLatin1String(emptyColour));
    const QString background = colour ? QStringLiteral(" bgcolor=\"%1\"").arg(QLatin1String(colour)) : QString();
    return QStringLiteral("<td align=\"right\" width=\"1%\" style=\"color:#808080; white-space:nowrap\">%1</td>"
                          "<td%2 width=\"49%\">%3</td>")
        .arg(QString::number(line + 1), background, readable(lines.at(line)));
}

QString fileText(const QByteArray& bytes)
{
    return AnnotationFileIO::DecodeText(bytes).text;
}

} // namespace

DlgNodeToolsPreview::DlgNodeToolsPreview(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::DlgNodeToolsPreview)
{
    ui->setupUi(this);
    ui->lblLegend->setText(tr("In Verknüpfungen: <span style=\"color:#c05800\"><b>¦</b></span> trennt die Felder, "
                              "<span style=\"color:#7a6a00\"><b>┆</b></span> die Zonen, "
                              "<span style=\"color:#1f5fbf\"><b>‖</b></span> die Ziele."));
    executeButton = ui->buttonBox->addButton(tr("Ausführen"), QDialogButtonBox::AcceptRole);
    executeButton->setObjectName(QStringLiteral("btnExecute"));
    QPushButton* close = ui->buttonBox->addButton(tr("Schließen"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("btnClose"));
    close->setDefault(true);
    ui->treeChangedFiles->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    ui->treeChangedFiles->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    ui->splitter->setStretchFactor(0, 1);
    ui->splitter->setStretchFactor(1, 3);
    ui->splitter->setSizes({ 380, 800 });

    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(ui->treeChangedFiles, &QTreeWidget::currentItemChanged, this, &DlgNodeToolsPreview::OnCurrentFileChanged);
    connect(ui->btnNextChange, &QAbstractButton::clicked, this, &DlgNodeToolsPreview::OnNextChangeClicked);
}

DlgNodeToolsPreview::~DlgNodeToolsPreview()
{
    delete ui;
}

void DlgNodeToolsPreview::SetResult(const QString& operationLabel, BlockNodeTool& previewed)
{
    tool = &previewed;
    const AnnotationFileProcessor& files = tool->FileProcessor();
    setWindowTitle(tr("Vorschau: %1").arg(operationLabel));
    paths = files.GetChangedFiles();
    const QList<int>& blocks = files.GetChangedBlockCounts();

    const int unchanged = files.GetFilesExamined() - paths.size();
    ui->lblSummary->setText(tr("Dateien, die sich ändern würden: %1\nDateien, die bleiben, wie sie sind: %2")
                                .arg(QString::number(paths.size()), QString::number(unchanged)));

    ui->treeChangedFiles->clear();
    QList<QTreeWidgetItem*> items;
    for (int i = 0; i < paths.size(); ++i) {
        auto* item = new QTreeWidgetItem;
        item->setText(0, QFileInfo(paths.at(i)).fileName());
        item->setToolTip(0, QDir::toNativeSeparators(paths.at(i)));
        const int count = blocks.value(i);
        item->setText(1, count > 0 ? QString::number(count) : tr("nur Zeilenenden"));
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        items.append(item);
    }
    ui->treeChangedFiles->addTopLevelItems(items);

    ui->lstWarnings->clear();
    for (const QString& warning : files.GetWarnings())
        ui->lstWarnings->addItem(QDir::toNativeSeparators(warning));
    ui->gbxWarnings->setTitle(tr("Warnungen (%1)").arg(files.GetWarnings().size()));
    ui->gbxWarnings->setVisible(!files.GetWarnings().isEmpty());

    executeButton->setEnabled(true);
    if (!items.isEmpty())
        ui->treeChangedFiles->setCurrentItem(items.first());
    OnCurrentFileChanged();
}

QString DlgNodeToolsPreview::ComparisonHtml(const QString& oldText, const QString& newText, int* changes)
{
    const QStringList oldLines = LineDiff::SplitLines(oldText);
    const QStringList newLines = LineDiff::SplitLines(newText);
    const QVector<LineDiff::Row> rows = LineDiff::Compare(oldLines, newLines);

    QString html = QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"1\" "
                                  "style=\"font-family:monospace; white-space:pre-wrap\">");
    html += QStringLiteral("<tr><th colspan=\"2\" align=\"left\">%1</th><th colspan=\"2\" align=\"left\">%2</th></tr>")
                .arg(tr("Jetzt"), tr("Nach dem Lauf"));
    int hunks = 0;
    const int count = rows.size();
    for (int i = 0; i < count;) {
        if (rows.at(i).kind == LineDiff::Same) {
            int end = i;
            while (end < count && rows.at(end).kind == LineDiff::Same)
                ++end;
            // Context after the previous change and before the next one.
            const int head = i == 0 ? 0 : contextLines;
            const int tail = end == count ? 0 : contextLines;
            if (end - i > head + tail + 1) {
                for (int k = i; k < i + head; ++k)
                    html += QLatin1String("<tr>") + cell(oldLines, rows.at(k).oldLine, nullptr)
                        + cell(newLines, rows.at(k).newLine, nullptr) + QLatin1String("</tr>");
                html += QStringLiteral("<tr><td colspan=\"4\" align=\"center\" style=\"color:#808080\">"
                                       "⋯ %1 ⋯</td></tr>")
                            .arg(tr("%1 unveränderte Zeilen").arg(end - i - head - tail));
                i = end - tail;
            }
            for (; i < end; ++i)
                html += QLatin1String("<tr>") + cell(oldLines, rows.at(i).oldLine, nullptr)
                    + cell(newLines, rows.at(i).newLine, nullptr) + QLatin1String("</tr>");
            continue;
        }
        // The anchor of "Nächste Änderung", in the change's first row.
        html += QStringLiteral("<tr><a name=\"change%1\"></a>").arg(hunks++);
        for (; i < count && rows.at(i).kind != LineDiff::Same; ++i) {
            const LineDiff::Row& row = rows.at(i);
            if (!html.endsWith(QLatin1String("</a>")))
                html += QLatin1String("<tr>");
            html += cell(oldLines, row.oldLine, removedColour) + cell(newLines, row.newLine, addedColour)
                + QLatin1String("</tr>");
        }
    }
    html += QLatin1String("</table>");
    if (changes)
        *changes = hunks;
    return html;
}

void DlgNodeToolsPreview::OnCurrentFileChanged()
{
    const int row = ui->treeChangedFiles->indexOfTopLevelItem(ui->treeChangedFiles->currentItem());
    changeCount = 0;
    currentChange = -1;
    if (row < 0) {
        ui->lblFile->clear();
        ui->txtComparison->setHtml(paths.isEmpty() ? tr("Keine Datei würde verändert.") : QString());
        ui->btnNextChange->setEnabled(false);
        return;
    }

    // Both texts from the file as it is now: what the run would make of it
    // is made again rather than kept for every file of the dry run.
    QByteArray current;
    QByteArray result;
    tool->PreviewFile(paths.at(row), &current, &result);
    const QString oldText = fileText(current);
    const QString newText = fileText(result);
    QString html = ComparisonHtml(oldText, newText, &changeCount);
    if (changeCount == 0)
        html.prepend(QStringLiteral("<p>%1</p>").arg(tr("Nur die Zeilenenden ändern sich (CR LF).")));
    ui->txtComparison->setHtml(html);
    ui->lblFile->setText(QDir::toNativeSeparators(paths.at(row)));
    ui->btnNextChange->setEnabled(changeCount > 0);
    OnNextChangeClicked();
}

void DlgNodeToolsPreview::OnNextChangeClicked()
{
    if (changeCount == 0)
        return;
    currentChange = (currentChange + 1) % changeCount;
    ui->txtComparison->scrollToAnchor(QStringLiteral("change%1").arg(currentChange));
    ui->btnNextChange->setToolTip(tr("Änderung %1 von %2").arg(currentChange + 1).arg(changeCount));
}
