#include "app/shared/wholefile.h"

QString WholeFile::write(const QString& path, const QByteArray& bytes)
{
    WholeFile file(path);
    if (file.open()) {
        static_cast<QSaveFile&>(file).write(bytes); // a failure is told at the end
    }
    return file.finish();
}

bool WholeFile::open(OpenMode mode)
{
    // Unbuffered, a write that fails is known before the file takes the old one's place.
    const bool isOpen = QSaveFile::open(mode | Unbuffered);
    m_reason = isOpen ? QString() : errorString();
    return isOpen;
}

QString WholeFile::finish()
{
    if (m_reason.isEmpty() && !commit()) {
        m_reason = errorString();
    }
    return m_reason; // what is not committed goes with this object
}

qint64 WholeFile::writeData(const char* data, qint64 length)
{
    // On a disk that gets full, a part is written without an error; the rest tells why.
    qint64 done = 0;
    while (done < length) {
        const qint64 written = QSaveFile::writeData(data + done, length - done);
        if (written <= 0) {
            if (m_reason.isEmpty()) {
                m_reason = errorString(); // closing the file forgets it
            }
            return -1;
        }
        done += written;
    }
    return done;
}
