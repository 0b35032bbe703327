#pragma once

#include "app/putback/putbacktexts.h"
#include "importexport/settingswriter.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

class Notices;

/// Puts back into one LDB what is kept of it: reads its settings, makes sure that it is the LDB,
/// gives it its former mute, and offers the former settings where it has others. What is back, and
/// read back, is forgotten. Destroying it changes nothing more: what is not forgotten is kept.
class LdbPutBack : public QObject
{
    Q_OBJECT
public:
    enum class End
    {
        Done,     ///< nothing is left to be put back
        Answered, ///< the user wants it later, or it is another LDB
        Failed    ///< the LDB did not tell or did not take it
    };
    Q_ENUM(End)

    /// Link and notices outlive this object.
    struct Tools
    {
        SerialLink* link;
        Notices* notices;
        KeptLdbs kept;
        std::function<QWidget*()> window; ///< that a box opens over
    };

    /// `isSame`: that it is the kept LDB is known.
    LdbPutBack(Tools tools, const KeptLdb& kept, const QString& hexId, bool isSame,
               QObject* parent = nullptr);
    ~LdbPutBack() override;

    void start();

    QString hexId() const { return m_hexId; }
    const KeptLdb& kept() const { return m_kept; }
    /// Whether the mute is what it shall be, and the LDB has said so.
    bool isMuteSettled() const { return m_isMuteSettled; }
    /// Whether an answer of the user is waited for.
    bool isAsking() const { return m_isAsking; }
    /// The LDB has got another number of FIMs at the user's wish: it is not put back.
    void adoptFims(quint16 fimCount);

signals:
    void muteSettled();
    /// The settings of the LDB were written.
    void settingsWritten();
    /// Once, at the end.
    void finished(LdbPutBack::End end);

private:
    void process(const std::optional<LdbSettings>& now);
    void askWhetherSame();
    void restoreMute();
    void processMute();
    void settleMute(bool isStored);
    void offerSettings(const QString& failure);
    void restoreSettings();
    void processSettings();
    void forgetSettings();
    void write(const SettingsChange& change, void (LdbPutBack::*processed)());
    void forget();
    MessageBox* ask(const char* name, const BoxTexts& texts, QMessageBox::Icon icon);

    Tools m_tools;
    KeptLdb m_kept;
    const QString m_hexId;
    bool m_isSame;
    bool m_isMuteSettled = false;
    LdbSettings m_now;
    std::unique_ptr<SettingsWriter> m_writer;
    QPointer<MessageBox> m_box;
    bool m_isAsking = false;
};
