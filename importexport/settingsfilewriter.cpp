#include "importexport/settingsfilewriter.h"

#include "importexport/settingscsv.h"

#include <QFileDevice>
#include <QTextCodec>

SettingsFileWriter::SettingsFileWriter(QFileDevice* file)
    : m_file(file)
    , m_stream(file)
{
}

bool SettingsFileWriter::writeHead()
{
    return write(settingscsv::fileHead());
}

bool SettingsFileWriter::writeLine(const LdbSettings& settings, const QString& firmwareId)
{
    return write(settingscsv::settingsLine(settings, firmwareId));
}

bool SettingsFileWriter::canHold(const LdbSettings& settings, const QString& firmwareId)
{
    return QTextCodec::codecForLocale()->canEncode(settingscsv::settingsLine(settings, firmwareId));
}

bool SettingsFileWriter::write(const QString& text)
{
    m_stream << text;
    m_stream.flush();
    return m_stream.status() == QTextStream::Ok && m_file->flush() &&
           m_file->error() == QFileDevice::NoError;
}
