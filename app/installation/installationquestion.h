#pragma once

#include "app/shared/text.h"
#include "history/installation.h"

#include <QDialog>

#include <vector>

class QLabel;
class QListWidget;
class QPushButton;

/// Asks which installation answers: one that is remembered, or a new one. Nothing waits for it; it
/// deletes itself when it is closed, and closing it decides nothing. GUI thread.
class InstallationQuestion : public QDialog
{
    Q_OBJECT
public:
    /// `text` says what was found. `proposed`: the id of the one selected at first; none for an
    /// empty one.
    InstallationQuestion(Text text, const std::vector<Installation>& installations,
                         const QString& proposed, QWidget* parent);

signals:
    /// The user's answer: an id, or an empty one for a new installation.
    void answered(const QString& id);

protected:
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    void answer(const QString& id);

    const Text m_composeText;
    QLabel* m_text;
    QListWidget* m_list;
    QPushButton* m_choose;
    QPushButton* m_new;
};
