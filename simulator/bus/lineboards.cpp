#include "simulator/bus/lineboards.h"

#include "serial/ldb/serialcommand.h"
#include "serial/wire/framecodec.h"
#include "simulator/board/answerencoder.h"

namespace {

constexpr int kMaxRequests = 4096;
constexpr unsigned kWordBits = 16;
constexpr int kFrameBytesBehindBody = 3; // check digits and EOT
const QByteArray kAck(1, framecodec::kAck);
const QByteArray kNak(1, framecodec::kNak);

quint16 word(quint64 bits, unsigned position)
{
    return static_cast<quint16>(bits >> (position * kWordBits));
}

QByteArray bodyOf(const QByteArray& frame)
{
    return frame.mid(1, frame.size() - 1 - kFrameBytesBehindBody);
}

} // namespace

LineBoards::LineBoards(const std::vector<int>& addresses)
{
    for (const int address : addresses) {
        auto board = std::make_unique<Board>();
        const QByteArray hexId = busaddress::toHexId(address).toLatin1();
        board->firmware = "LDB16 V03." + hexId;
        board->settings.name = "Board " + hexId;
        layOut(address, *board);
        m_boards[static_cast<std::size_t>(address)] = std::move(board);
    }
}

std::vector<BoardAnswer> LineBoards::hear(const QByteArray& frame, qint64,
                                          const AbsentBoards& absent)
{
    const BusRequest& request = parsed(frame);
    if (request.isBroadcast()) {
        for (std::size_t address = 0; address < m_boards.size(); ++address) {
            Board* board = m_boards[address].get();
            if (board && board->isPresent && !absent.test(address)) {
                answer(static_cast<int>(address), *board, request, frame);
            }
        }
        return {};
    }
    const auto address = static_cast<std::size_t>(request.address);
    Board* board = m_boards[address].get();
    if (!board || !board->isPresent || absent.test(address)) {
        return {};
    }
    BoardAnswer result;
    result.board = request.address;
    result.bytes = answer(request.address, *board, request, frame);
    return {result};
}

void LineBoards::setPresent(int address, bool isPresent)
{
    m_boards[static_cast<std::size_t>(address)]->isPresent = isPresent;
}

QByteArray LineBoards::name(int address) const
{
    return board(address).settings.name;
}

QByteArray LineBoards::firmware(int address) const
{
    return board(address).firmware;
}

const StoredSettings& LineBoards::settings(int address) const
{
    return board(address).settings;
}

quint32 LineBoards::statusAnswers(int address) const
{
    return board(address).statusAnswers;
}

int LineBoards::timesDone(int address, const QByteArray& body) const
{
    return board(address).done.value(body);
}

/// The voltages carry the number and a current the address; the rest is a mixture of both that no
/// other answer has.
LdbStatus LineBoards::status(int address, quint32 number)
{
    const quint64 mixture =
        Chance((quint64{number} << kWordBits) | static_cast<quint64>(address)).next();
    LdbStatus status;
    status.firstByte = static_cast<quint8>(address);
    status.state = LdbState::Measuring;
    status.primaryVoltage = word(number, 0);
    status.secondaryVoltage = word(number, 1);
    status.primaryAuxiliary = word(mixture, 0);
    status.secondaryAuxiliary = word(mixture, 1);
    status.primaryCurrent = static_cast<quint16>(address);
    status.secondaryCurrent = word(mixture, 2);
    return status;
}

std::optional<LineBoards::Origin> LineBoards::origin(const LdbStatus& status)
{
    const Origin origin{status.primaryCurrent,
                        (quint32{status.secondaryVoltage} << kWordBits) | status.primaryVoltage};
    const LdbStatus meant = LineBoards::status(origin.address, origin.number);
    const bool isGenuine = meant.primaryAuxiliary == status.primaryAuxiliary &&
                           meant.secondaryAuxiliary == status.secondaryAuxiliary &&
                           meant.secondaryCurrent == status.secondaryCurrent;
    return isGenuine ? std::optional<Origin>(origin) : std::nullopt;
}

const BusRequest& LineBoards::parsed(const QByteArray& frame)
{
    const auto known = m_requests.constFind(frame);
    if (known != m_requests.constEnd()) {
        return *known;
    }
    if (m_requests.size() >= kMaxRequests) {
        m_requests.clear();
    }
    // What is not from the master names no board.
    return *m_requests.insert(frame, parseBusRequest(bodyOf(frame)).value_or(BusRequest()));
}

QByteArray LineBoards::answer(int address, Board& board, const BusRequest& request,
                              const QByteArray& frame)
{
    switch (request.kind) {
    case BusRequest::Kind::Poll:
        return kAck;
    case BusRequest::Kind::Read:
        if (request.index == static_cast<int>(LdbParameter::Name)) {
            return board.nameFrame;
        }
        return request.index == static_cast<int>(LdbParameter::Settings) ? board.settingsFrame
                                                                         : kNak;
    case BusRequest::Kind::Execute:
        if (request.index == static_cast<int>(LdbAction::Status)) {
            return framecodec::createCommand(
                answerencoder::status(status(address, ++board.statusAnswers)));
        }
        if (request.index == static_cast<int>(LdbAction::FirmwareId)) {
            return board.firmwareFrame;
        }
        break;
    case BusRequest::Kind::Change:
        break;
    case BusRequest::Kind::Unknown:
        return kNak;
    }
    const bool isAccepted = isObeyed(board, request);
    if (isAccepted) {
        ++board.done[bodyOf(frame)];
    }
    layOut(address, board);
    return isAccepted ? kAck : kNak;
}

bool LineBoards::isObeyed(Board& board, const BusRequest& request)
{
    if (request.kind == BusRequest::Kind::Change) {
        return board.settings.write(static_cast<LdbParameter>(request.index), request.data);
    }
    const auto action = static_cast<LdbAction>(request.index);
    return action == LdbAction::Control || action == LdbAction::StoreSettings;
}

void LineBoards::layOut(int address, Board& board)
{
    board.nameFrame = framecodec::createCommand(answerencoder::name(board.settings.name));
    board.settingsFrame =
        framecodec::createCommand(answerencoder::settings(address, board.settings));
    board.firmwareFrame = framecodec::createCommand(answerencoder::firmware(board.firmware));
}

const LineBoards::Board& LineBoards::board(int address) const
{
    const Board* board = m_boards.at(static_cast<std::size_t>(address)).get();
    Q_ASSERT_X(board, "LineBoards", "there is no board at this address");
    return *board;
}
