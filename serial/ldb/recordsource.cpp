#include "serial/ldb/recordsource.h"

RecordSource::RecordSource(QObject* parent)
    : QObject(parent)
{
}
