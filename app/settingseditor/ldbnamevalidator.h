#pragma once

#include <QValidator>

/// Lets a name be typed only as far as an LDB can store it.
class LdbNameValidator : public QValidator
{
    Q_OBJECT
public:
    using QValidator::QValidator;
    State validate(QString& input, int& position) const override;
};
