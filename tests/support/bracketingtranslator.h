#pragma once

#include <QCoreApplication>
#include <QTranslator>

/// While it lives, every translated text stands in brackets, so that whatever is not translated
/// shows.
class BracketingTranslator : public QTranslator
{
public:
    BracketingTranslator() { QCoreApplication::installTranslator(this); }
    ~BracketingTranslator() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* source, const char*, int) const override
    {
        return QStringLiteral("[%1]").arg(QString::fromLatin1(source));
    }
};
