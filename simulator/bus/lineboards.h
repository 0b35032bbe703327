#pragma once

#include "serial/ldb/ldbstatus.h"
#include "simulator/board/busrequest.h"
#include "simulator/board/storedsettings.h"
#include "simulator/line/line.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <array>
#include <memory>
#include <optional>
#include <vector>

/// Boards that know what a conversation needs and no more: poll, status, name, firmware, settings,
/// changes and actions. No two status answers are alike, and each tells whose and which it is, so
/// that a record can be traced back to the answer it came of.
class LineBoards : public Boards
{
public:
    /// Where a status answer came from.
    struct Origin
    {
        int address = 0;
        quint32 number = 0; ///< of the board's status answers, counted from 1
    };

    explicit LineBoards(const std::vector<int>& addresses);

    std::vector<BoardAnswer> hear(const QByteArray& frame, qint64 at,
                                  const AbsentBoards& absent) override;

    /// A board that is not present hears nothing, until it is again.
    void setPresent(int address, bool isPresent);

    // Of a board that is among the addresses.
    QByteArray name(int address) const;
    QByteArray firmware(int address) const;
    const StoredSettings& settings(int address) const;
    quint32 statusAnswers(int address) const; ///< given so far
    /// How often the board has done what this body asks for; refusals do not count.
    int timesDone(int address, const QByteArray& body) const;

    static LdbStatus status(int address, quint32 number);
    /// Whose and which status answer the volts and milliamperes are of; nothing when no board ever
    /// answers so. All other fields are left out.
    static std::optional<Origin> origin(const LdbStatus& status);

private:
    struct Board
    {
        bool isPresent = true;
        QByteArray firmware;
        StoredSettings settings;
        quint32 statusAnswers = 0;
        QHash<QByteArray, int> done; ///< by body
        // Frames that stay the same until the settings change.
        QByteArray nameFrame;
        QByteArray settingsFrame;
        QByteArray firmwareFrame;
    };

    const BusRequest& parsed(const QByteArray& frame);
    QByteArray answer(int address, Board& board, const BusRequest& request,
                      const QByteArray& frame);
    static bool isObeyed(Board& board, const BusRequest& request);
    static void layOut(int address, Board& board);
    const Board& board(int address) const;

    std::array<std::unique_ptr<Board>, 256> m_boards; ///< by bus address
    QHash<QByteArray, BusRequest> m_requests;         ///< by frame: the same ones come again
};
