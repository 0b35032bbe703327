#pragma once

#include <QDialog>

/// What the program is built on, who owns it and what is not warranted. Modal, of fixed size.
class AboutDialog : public QDialog
{
    Q_OBJECT
public:
    /// Takes the colours of `parent`.
    explicit AboutDialog(QWidget* parent);
};
