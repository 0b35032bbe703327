#pragma once

#include <QSaveFile>
#include <QString>

/// A file that is written as a whole or not at all, and says why it is not. `QSaveFile` alone puts
/// an empty file in the old one's place when a full disk refuses its last buffer, and forgets the
/// reason. Any thread, one at a time.
class WholeFile : public QSaveFile
{
public:
    explicit WholeFile(const QString& path)
        : QSaveFile(path)
    {
    }
    /// Writes it at once. Gives an empty text, or why what was there is there still.
    static QString write(const QString& path, const QByteArray& bytes);

    bool open(OpenMode mode = WriteOnly) override;
    /// Puts it in its place. Gives an empty text, or why what was there is there still, as the
    /// system says it.
    QString finish();

protected:
    qint64 writeData(const char* data, qint64 length) override;

private:
    QString m_reason; ///< of the first failure
};
