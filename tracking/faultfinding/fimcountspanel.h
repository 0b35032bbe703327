#pragma once

#include <QWidget>

#include <optional>

class QLabel;
class QPushButton;

/// The FIMs that a finished run has counted beside those that the LDB is told to have, in red where
/// they differ, and a button that takes the count over. Hidden until there is a count.
class FimCountsPanel : public QWidget
{
    Q_OBJECT
public:
    explicit FimCountsPanel(QWidget* parent = nullptr);

    /// For a new run: hides it.
    void reset();
    /// As the LDB has it; nothing where that is not known.
    void setConfigured(std::optional<int> fimCount);
    void showCounted(int fimCount);
    /// Whether there is a connection to take it over on.
    void setReachable(bool reachable);

signals:
    void takeOverWanted(int fimCount);

private:
    void show();

    QLabel* m_label;
    QPushButton* m_button;
    std::optional<int> m_counted;
    std::optional<int> m_configured;
};
