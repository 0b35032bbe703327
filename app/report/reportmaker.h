#pragma once

#include "importexport/report/reportpages.h"
#include "importexport/report/visitcontents.h"

#include <QImage>
#include <QObject>
#include <QThread>

#include <functional>
#include <memory>

class QPagedPaintDevice;
class ReportMakerHost;

/// Makes a document of a report, draws its pages and saves it, in a thread of its own: the pages of
/// a large site take a second. GUI thread only.
class ReportMaker : public QObject
{
    Q_OBJECT
public:
    enum class Thread
    {
        Own,
        Callers ///< for virtual time: works when the event loop comes to it
    };
    explicit ReportMaker(LineWords words, Thread thread = Thread::Own, QObject* parent = nullptr);
    /// Waits for what is under way.
    ~ReportMaker() override;

    /// Makes the document; `made()` follows, unless another document is wanted by then.
    void make(const VisitReport& report, ReportPages::Paper paper);
    /// Draws a page of the last document; `drawn()` follows.
    void draw(int page, int width);
    void savePdf(const QString& path);
    void saveHtml(const QString& path);
    /// Prints all pages; nobody else uses the device from now on.
    void print(std::shared_ptr<QPagedPaintDevice> device);

signals:
    /// Size of the paper in 0.1 mm.
    void made(int pages, QSizeF paper);
    void drawn(int page, const QImage& image);
    /// `failure`: what the system said; empty when the file is saved.
    void saved(const QString& path, const QString& failure);
    void printed(bool isDone);

private:
    friend class ReportMakerHost;
    void post(std::function<void(ReportMakerHost&)> work);

    QThread m_thread;
    ReportMakerHost* m_host; ///< in the thread, which deletes it
    bool m_hasThread;
    int m_number = 0; ///< of the document that is wanted
};
