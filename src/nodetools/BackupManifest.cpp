#include "nodetools/BackupManifest.h"

#include <QCoreApplication>

namespace {

const QByteArray header = QByteArrayLiteral("KAMO-BACKUP-MANIFEST 1");
const QByteArray endMark = QByteArrayLiteral("END ");

QString tr(const char* text)
{
    return QCoreApplication::translate("BackupManifest", text);
}

// File names may hold anything but "/" and NUL; the line structure needs
// line ends escaped, and so the escape character itself.
QByteArray escaped(const QString& name)
{
    QByteArray bytes = name.toUtf8();
    bytes.replace('\\', "\\\\").replace('\n', "\\n").replace('\r', "\\r");
    return bytes;
}

bool unescape(const QByteArray& bytes, QString* name)
{
    QByteArray plain;
    plain.reserve(bytes.size());
    for (int i = 0; i < bytes.size(); ++i) {
        if (bytes.at(i) != '\\') {
            plain += bytes.at(i);
            continue;
        }
        if (++i == bytes.size())
            return false;
        switch (bytes.at(i)) {
        case '\\':
            plain += '\\';
            break;
        case 'n':
            plain += '\n';
            break;
        case 'r':
            plain += '\r';
            break;
        default:
            return false;
        }
    }
    *name = QString::fromUtf8(plain);
    return !name->isEmpty() && name->toUtf8() == plain;
}

bool isHexDigest(const QByteArray& text)
{
    if (text.size() != 64)
        return false;
    for (const char c : text) {
        if (!((c >= '0' && c <= '9') || (c >= 'a' && c <= 'f')))
            return false;
    }
    return true;
}

} // namespace

void BackupManifest::Add(const QString& fileName, qint64 size, const QByteArray& sha256)
{
    entries.insert(fileName, Entry { size, sha256 });
}

QByteArray BackupManifest::Unfinished()
{
    return header + '\n';
}

QByteArray BackupManifest::ToText() const
{
    QByteArray text = header + '\n';
    for (auto it = entries.constBegin(); it != entries.constEnd(); ++it)
        text += it.value().sha256 + ' ' + QByteArray::number(it.value().size) + ' ' + escaped(it.key()) + '\n';
    return text + endMark + QByteArray::number(entries.size()) + '\n';
}

void BackupManifest::Parse(const QByteArray& text)
{
    entries.clear();
    problems.clear();
    finished = false;
    // A manifest opened and saved by an editor on Windows has CR LF line
    // ends; names never hold a bare CR (it is escaped).
    QList<QByteArray> lines = text.split('\n');
    for (QByteArray& line : lines) {
        if (line.endsWith('\r'))
            line.chop(1);
    }
    if (lines.constFirst() != header) {
        problems.append(tr("not a backup manifest"));
        return;
    }
    // The text ends with a line end: the last part is empty.
    const int count = lines.size() - (lines.constLast().isEmpty() ? 1 : 0);
    for (int i = 1; i < count; ++i) {
        const QByteArray& line = lines.at(i);
        if (line.startsWith(endMark) && i == count - 1) {
            bool ok = false;
            const int listed = line.mid(endMark.size()).toInt(&ok);
            finished = ok && listed == entries.size();
            if (!finished)
                problems.append(tr("the end line does not match the %1 files listed").arg(entries.size()));
            break;
        }
        const int first = line.indexOf(' ');
        const int second = first < 0 ? -1 : line.indexOf(' ', first + 1);
        bool sizeOk = false;
        const qint64 size = second < 0 ? -1 : line.mid(first + 1, second - first - 1).toLongLong(&sizeOk);
        QString name;
        if (second < 0 || !isHexDigest(line.left(first)) || !sizeOk || size < 0
            || !unescape(line.mid(second + 1), &name) || entries.contains(name)) {
            problems.append(tr("line %1 cannot be read").arg(i + 1));
            continue;
        }
        entries.insert(name, Entry { size, line.left(first) });
    }
    if (!finished && problems.isEmpty())
        problems.append(tr("the backup was not finished"));
}
