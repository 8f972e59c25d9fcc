#include "nodetools/AnnotationFileProcessor.h"

#include "nodetools/AnnotationFileIO.h"
#include "nodetools/ObjectBlockProcessor.h"
#include "nodetools/ProgressCallback.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringView>

#include <vector>

const QString AnnotationFileProcessor::AnnotationExtension = QStringLiteral(".ann");
const QString AnnotationFileProcessor::DataDirectoryName = QStringLiteral("Daten");

namespace {

const QString beginMarker = QStringLiteral("BO");
const QString endMarker = QStringLiteral("EO");
const QString lineEnd = QStringLiteral("\r\n");

// A line of the text: where it starts and how long it is.
struct LineSpan {
    int start;
    int length;
};

// Splits at every CR and LF and drops the empty parts, so "\r\n", "\n" and
// "\r" all end a line and empty lines vanish.
void splitLines(const QString& text, std::vector<LineSpan>& lines)
{
    const QChar* const begin = text.constData();
    const int size = text.size();
    int start = 0;
    for (int i = 0; i < size; ++i) {
        const ushort c = begin[i].unicode();
        if (c == '\r' || c == '\n') {
            if (i > start)
                lines.push_back({ start, i - start });
            start = i + 1;
        }
    }
    if (size > start)
        lines.push_back({ start, size - start });
}

bool isMarker(const QChar* text, const LineSpan& line, const QString& marker)
{
    return line.length == marker.size() && QStringView(text + line.start, line.length) == marker;
}

int indexOfMarker(const QChar* text, const std::vector<LineSpan>& lines, const QString& marker, int from)
{
    const int count = int(lines.size());
    for (int i = from; i < count; ++i) {
        if (isMarker(text, lines[size_t(i)], marker))
            return i;
    }
    return -1;
}

// Collects the joined output without a list of lines in between.
class LineJoiner
{
public:
    explicit LineJoiner(int expectedSize) { text.reserve(expectedSize); }

    void append(const QChar* line, int length)
    {
        if (!empty)
            text += lineEnd;
        text.append(line, length);
        empty = false;
    }

    void append(const QString& line) { append(line.constData(), line.size()); }

    QString text;

private:
    bool empty = true;
};

QString tr(const char* text)
{
    return QCoreApplication::translate("AnnotationFileProcessor", text);
}

// The 1-based line at `offset` as an editor counts it: "\r\n", "\n" and "\r"
// each end one line, and empty lines count.
int lineNumberAt(const QString& text, int offset)
{
    int line = 1;
    const QChar* chars = text.constData();
    for (int i = 0; i < offset; ++i) {
        if (chars[i] == QLatin1Char('\n')
            || (chars[i] == QLatin1Char('\r') && (i + 1 >= text.size() || chars[i + 1] != QLatin1Char('\n'))))
            ++line;
    }
    return line;
}

// Hosts on Windows list documents with backslashes; their folders are
// ignored here like any other.
QFileInfo documentInfo(const QString& documentFileName)
{
    return QFileInfo(QString(documentFileName).replace(QLatin1Char('\\'), QLatin1Char('/')));
}

QString primaryPath(const QString& dataDir, const QString& documentFileName)
{
    return dataDir + QLatin1Char('/') + documentInfo(documentFileName).baseName()
        + AnnotationFileProcessor::AnnotationExtension;
}

} // namespace

AnnotationFileProcessor::AnnotationFileProcessor() = default;

AnnotationFileProcessor::~AnnotationFileProcessor() = default;

QString AnnotationFileProcessor::DataDirectory(const QString& projectRootDir)
{
    return QDir::cleanPath(projectRootDir) + QLatin1Char('/') + DataDirectoryName;
}

QString AnnotationFileProcessor::AnnotationFilePath(const QString& dataDir, const QString& documentFileName)
{
    const QString primary = primaryPath(dataDir, documentFileName);
    if (QFile::exists(primary))
        return primary;

    // Only the dot goes, the extension stays: plan.rev.pdf -> plan.revpdf.ann.
    QString fallback = documentInfo(documentFileName).fileName();
    const int lastDot = fallback.lastIndexOf(QLatin1Char('.'));
    if (lastDot >= 0)
        fallback.remove(lastDot, 1);
    return dataDir + QLatin1Char('/') + fallback + AnnotationExtension;
}

bool AnnotationFileProcessor::ProcessText(QString& text, ObjectBlockProcessor& processor, int* changedBlocks)
{
    TextReport report;
    const bool changed = ProcessText(text, processor, &report);
    if (changedBlocks)
        *changedBlocks = report.changedBlocks;
    return changed;
}

bool AnnotationFileProcessor::ProcessText(QString& text, ObjectBlockProcessor& processor, TextReport* report)
{
    int changed = 0;
    int unclosedLine = 0;
    int dropped = 0;
    std::vector<LineSpan> lines;
    splitLines(text, lines);
    const QChar* const chars = text.constData();
    const int count = int(lines.size());

    LineJoiner output(text.size() + 256);
    // The strings of a block are reused from block to block: once the
    // processor's result has been copied out, nothing else shares them and
    // they are refilled without allocating.
    std::vector<QString> blockLines;
    QStringList block;
    QStringList result;

    int i = 0;
    while (i < count) {
        const int start = indexOfMarker(chars, lines, beginMarker, i);
        const int stop = start < 0 ? count : start;
        for (; i < stop; ++i)
            output.append(chars + lines[size_t(i)].start, lines[size_t(i)].length);
        if (start < 0)
            break;

        // A block that is never closed is never processed: it and everything
        // after it are left out of the result.
        const int end = indexOfMarker(chars, lines, endMarker, start + 1);
        if (end < 0) {
            unclosedLine = lineNumberAt(text, lines[size_t(start)].start);
            dropped = count - start;
            ++changed;
            break;
        }

        const int blockSize = end - start + 1;
        if (int(blockLines.size()) < blockSize)
            blockLines.resize(size_t(blockSize));
        block.erase(block.begin(), block.end());
        for (int k = 0; k < blockSize; ++k) {
            const LineSpan& line = lines[size_t(start + k)];
            QString& reused = blockLines[size_t(k)];
            reused.setUnicode(chars + line.start, line.length);
            block.append(reused);
        }
        processor.ProcessBlock(block, result);
        if (report && result != block)
            ++changed;
        for (const QString& line : qAsConst(result))
            output.append(line);
        result.erase(result.begin(), result.end());
        i = end + 1;
    }

    processor.AppendToFile(result);
    if (!result.isEmpty())
        ++changed;
    for (const QString& line : qAsConst(result))
        output.append(line);
    if (report) {
        report->changedBlocks = changed;
        report->unclosedBlockLine = unclosedLine;
        report->droppedLines = dropped;
    }

    if (output.text == text)
        return false;
    text.swap(output.text);
    return true;
}

void AnnotationFileProcessor::Run(ObjectBlockProcessor& processor)
{
    const QString dataDir = DataDirectory(projectRootDir);
    if (!QFileInfo(dataDir).isDir())
        return;
    if (!dryRun)
        AnnotationFileIO::RemoveStaleTemporaryFiles(dataDir, QDateTime::currentDateTimeUtc());

    QStringList paths;
    if (allAnnotationFiles) {
        const QDir dir(dataDir);
        const QStringList names = dir.entryList({ QLatin1Char('*') + AnnotationExtension }, QDir::Files, QDir::Name);
        for (const QString& name : names)
            paths.append(dataDir + QLatin1Char('/') + name);
    } else {
        for (const QString& name : qAsConst(fileNames))
            paths.append(AnnotationFilePath(dataDir, name));
    }

    const int total = paths.size();
    for (int i = 0; i < total; ++i) {
        const QString& path = paths.at(i);
        if (progressCallback)
            progressCallback->Progress(path, i + 1, total);
        if (!QFile::exists(path)) {
            // A link that leads nowhere under the primary name sends the
            // look-up on to the fallback name; the link is what the user
            // needs to hear of.
            const QString primary = allAnnotationFiles ? path : primaryPath(dataDir, fileNames.at(i));
            const QString link = QFileInfo(primary).isSymLink() ? primary : path;
            if (QFileInfo(link).isSymLink())
                leaveOut(link, tr("%1: is a link to a missing file, left unchanged").arg(link));
            else if (allAnnotationFiles)
                leaveOut(path, tr("%1: disappeared during the run").arg(path));
            else
                documentsWithoutFile.append(fileNames.at(i));
            continue;
        }
        processor.BeginFile(path);
        processFile(path, processor);
        processor.EndFile(path);
    }
}

void AnnotationFileProcessor::leaveOut(const QString& path, const QString& message)
{
    leftOutFiles.append(path);
    warnings.append(message);
}

void AnnotationFileProcessor::processFile(const QString& path, ObjectBlockProcessor& processor)
{
    QByteArray bytes;
    {
        // Opened for writing too: a file that may not be written is skipped
        // before any work is spent on it.
        QFile file(path);
        if (QFileInfo(path).isDir())
            return leaveOut(path, tr("%1: is a folder, left unchanged").arg(path));
        if (!file.open(QIODevice::ReadWrite))
            return leaveOut(path, tr("%1: could not be opened (%2), left unchanged").arg(path, file.errorString()));
        bytes = file.readAll();
        if (file.error() != QFileDevice::NoError) {
            ++filesExamined;
            return leaveOut(path, tr("%1: could not be read (%2)").arg(path, file.errorString()));
        }
    }
    ++filesExamined;

    AnnotationFileIO::DecodedText decoded = AnnotationFileIO::DecodeText(bytes);
    TextReport report;
    if (!ProcessText(decoded.text, processor, &report))
        return;

    if (!decoded.validUtf8)
        return leaveOut(path, tr("%1: not valid UTF-8, left unchanged").arg(path));
    const QByteArray newBytes = AnnotationFileIO::EncodeText(decoded.text, decoded.hasBom);
    QString error;
    const bool written = dryRun ? AnnotationFileIO::CanReplaceFile(path, &error)
                                : AnnotationFileIO::ReplaceFile(path, newBytes, &error);
    if (!written)
        return leaveOut(path, tr("%1: could not be written (%2), left unchanged").arg(path, error));
    if (report.unclosedBlockLine > 0) {
        warnings.append(tr("%1: the object from line %2 is not closed: its %3 lines to the end of the file are dropped")
                            .arg(path)
                            .arg(report.unclosedBlockLine)
                            .arg(report.droppedLines));
    }
    ++filesChanged;
    changedFiles.append(path);
    changedBlockCounts.append(report.changedBlocks);
}

bool AnnotationFileProcessor::PreviewFile(
    const QString& path, ObjectBlockProcessor& processor, QByteArray* current, QByteArray* result)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    *current = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return false;
    AnnotationFileIO::DecodedText decoded = AnnotationFileIO::DecodeText(*current);
    processor.BeginFile(path);
    const bool changed = ProcessText(decoded.text, processor);
    processor.EndFile(path);
    *result = changed && decoded.validUtf8 ? AnnotationFileIO::EncodeText(decoded.text, decoded.hasBom) : *current;
    return true;
}
