#pragma once

#include <QObject>
#include <QValidator>

/// Lets a name be typed only as far as an LDB can store it.
class LdbNameValidator : public QValidator
{
    Q_OBJECT
public:
    using QValidator::QValidator;
    State validate(QString& input, int& position) const override;
};

/// As an event filter of a widget: the wheel does not change its value. Who turns it over a form
/// wants to scroll, and would not see what else has changed.
class WheelGuard : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};
