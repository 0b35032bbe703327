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
    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override
    {
        Q_UNUSED(context)
        Q_UNUSED(disambiguation)
        Q_UNUSED(n)
        return QStringLiteral("[%1]").arg(QString::fromLatin1(source));
    }
};
