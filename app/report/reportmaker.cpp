#include "app/report/reportmaker.h"

#include "app/shared/wholefile.h"
#include "importexport/report/reporthtml.h"

#include <QPagedPaintDevice>

#include <utility>

/// Lives in the thread; owns the document.
class ReportMakerHost : public QObject
{
public:
    ReportMakerHost(ReportMaker* maker, LineWords words)
        : m_maker(maker)
        , m_words(std::move(words))
    {
    }

    void make(const VisitReport& report, ReportPages::Paper paper, int number)
    {
        m_contents = contentsOf(report, m_words);
        m_pages = std::make_unique<ReportPages>(m_contents, paper);
        tell([count = m_pages->count(), size = m_pages->paperSize(), number](ReportMaker& maker) {
            if (number == maker.m_number) {
                emit maker.made(count, size);
            }
        });
    }

    void draw(int page, int width, int number)
    {
        if (!m_pages || page < 0 || page >= m_pages->count()) {
            return;
        }
        tell([page, image = m_pages->image(page, width), number](ReportMaker& maker) {
            if (number == maker.m_number) {
                emit maker.drawn(page, image);
            }
        });
    }

    void save(const QString& path, bool isPdf)
    {
        const QByteArray bytes = !m_pages ? QByteArray()
                                 : isPdf  ? m_pages->pdf()
                                          : htmlOf(m_contents);
        const QString failure = bytes.isEmpty() ? ReportMaker::tr("The document cannot be made.")
                                                : WholeFile::write(path, bytes);
        tell([path, failure](ReportMaker& maker) { emit maker.saved(path, failure); });
    }

    void print(QPagedPaintDevice& device)
    {
        const bool isDone = m_pages && m_pages->print(device);
        tell([isDone](ReportMaker& maker) { emit maker.printed(isDone); });
    }

private:
    template <typename Tell>
    void tell(Tell what)
    {
        Q_ASSERT(QThread::currentThread() == thread());
        // It may be posted to: it ends this thread before it goes.
        QMetaObject::invokeMethod(
            m_maker, [maker = m_maker, what] { what(*maker); }, Qt::QueuedConnection);
    }

    ReportMaker* m_maker;
    LineWords m_words;
    ReportContents m_contents;
    std::unique_ptr<ReportPages> m_pages;
};

ReportMaker::ReportMaker(LineWords words, Thread thread, QObject* parent)
    : QObject(parent)
    , m_host(new ReportMakerHost(this, std::move(words)))
    , m_hasThread(thread == Thread::Own)
{
    if (m_hasThread) {
        m_thread.setObjectName(QStringLiteral("report"));
        m_host->moveToThread(&m_thread);
        connect(&m_thread, &QThread::finished, m_host, &QObject::deleteLater);
        m_thread.start(QThread::LowPriority);
    }
}

ReportMaker::~ReportMaker()
{
    if (!m_hasThread) {
        delete m_host;
        return;
    }
    m_thread.quit();
    m_thread.wait();
}

void ReportMaker::post(std::function<void(ReportMakerHost&)> work)
{
    Q_ASSERT(QThread::currentThread() == thread());
    QMetaObject::invokeMethod(
        m_host, [host = m_host, work = std::move(work)] { work(*host); }, Qt::QueuedConnection);
}

void ReportMaker::make(const VisitReport& report, ReportPages::Paper paper)
{
    ++m_number;
    post([report, paper, number = m_number](ReportMakerHost& host) {
        host.make(report, paper, number);
    });
}

void ReportMaker::draw(int page, int width)
{
    post([page, width, number = m_number](ReportMakerHost& host) {
        host.draw(page, width, number);
    });
}

void ReportMaker::savePdf(const QString& path)
{
    post([path](ReportMakerHost& host) { host.save(path, true); });
}

void ReportMaker::saveHtml(const QString& path)
{
    post([path](ReportMakerHost& host) { host.save(path, false); });
}

void ReportMaker::print(std::shared_ptr<QPagedPaintDevice> device)
{
    post([device = std::move(device)](ReportMakerHost& host) { host.print(*device); });
}
