#include "nodetools/AnnotationFileProcessor.h"

#include "nodetools/AnnotationFileIO.h"
#include "nodetools/ObjectBlockProcessor.h"
#include "nodetools/ProgressCallback.h"

#include <QCoreApplication>
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

} // namespace

AnnotationFileProcessor::AnnotationFileProcessor() = default;

AnnotationFileProcessor::~AnnotationFileProcessor() = default;

QString AnnotationFileProcessor::DataDirectory(const QString& projectRootDir)
{
    return QDir::cleanPath(projectRootDir) + QLatin1Char('/') + DataDirectoryName;
}

QString AnnotationFileProcessor::AnnotationFilePath(const QString& dataDir, const QString& documentFileName)
{
    // Hosts on Windows list documents with backslashes; their folders are
    // ignored here like any other.
    const QFileInfo document(QString(documentFileName).replace(QLatin1Char('\\'), QLatin1Char('/')));
    const QString primary = dataDir + QLatin1Char('/') + document.baseName() + AnnotationExtension;
    if (QFile::exists(primary))
        return primary;

    // Only the dot goes, the extension stays: plan.rev.pdf -> plan.revpdf.ann.
    QString fallback = document.fileName();
    const int lastDot = fallback.lastIndexOf(QLatin1Char('.'));
    if (lastDot >= 0)
        fallback.remove(lastDot, 1);
    return dataDir + QLatin1Char('/') + fallback + AnnotationExtension;
}

bool AnnotationFileProcessor::ProcessText(QString& text, ObjectBlockProcessor& processor, int* changedBlocks)
{
    int changed = 0;
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
        if (end < 0)
            break;

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
        if (changedBlocks && result != block)
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
    if (changedBlocks)
        *changedBlocks = changed;

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
        if (!QFile::exists(path))
            continue;
        processor.BeginFile(path);
        processFile(path, processor);
        processor.EndFile(path);
    }
}

void AnnotationFileProcessor::processFile(const QString& path, ObjectBlockProcessor& processor)
{
    QByteArray bytes;
    {
        // Opened for writing too: a file that may not be written is skipped
        // before any work is spent on it.
        QFile file(path);
        if (!file.open(QIODevice::ReadWrite))
            return;
        bytes = file.readAll();
        if (file.error() != QFileDevice::NoError) {
            warnings.append(tr("%1: could not be read (%2)").arg(path, file.errorString()));
            ++filesExamined;
            return;
        }
    }
    ++filesExamined;

    AnnotationFileIO::DecodedText decoded = AnnotationFileIO::DecodeText(bytes);
    int changedBlocks = 0;
    if (!ProcessText(decoded.text, processor, &changedBlocks))
        return;

    if (!decoded.validUtf8) {
        warnings.append(tr("%1: not valid UTF-8, left unchanged").arg(path));
        return;
    }
    const QByteArray newBytes = AnnotationFileIO::EncodeText(decoded.text, decoded.hasBom);
    QString error;
    const bool written = dryRun ? AnnotationFileIO::CanReplaceFile(path, &error)
                                : AnnotationFileIO::ReplaceFile(path, newBytes, &error);
    if (!written) {
        warnings.append(tr("%1: could not be written (%2), left unchanged").arg(path, error));
        return;
    }
    ++filesChanged;
    changedFiles.append(path);
    changedBlockCounts.append(changedBlocks);
    if (dryRun)
        changedContents.append(newBytes);
}
