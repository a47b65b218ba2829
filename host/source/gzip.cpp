#include "source/gzip.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <vector>
#include <zlib.h>

namespace korvel::inspector {
namespace {

constexpr std::string_view Magic = "\x1F\x8B";
constexpr std::size_t MostTimesLarger = 1000; // the format allows 1,032; documents reach some dozen
constexpr std::size_t ChunkSize = 1 << 18;

constexpr std::size_t MostTimesReserved = 30; // what is cut off ends with any bytes

// The format ends with the size of its last member, modulo 4 GB: mostly that of the whole. It is a hint only:
// a text that grows beyond it takes twice its memory.
std::size_t SizeSaidAtTheEnd(std::string_view packed) {
    std::size_t size = 0;
    for (std::size_t i = 1; i <= 4 && i <= packed.size(); ++i)
        size = size << 8 | static_cast<unsigned char>(packed[packed.size() - i]);
    return size;
}

class Inflater {
public:
    explicit Inflater(std::string_view packed) {
        constexpr int GzipOnly = 15 + 16;
        m_ready = inflateInit2(&m_stream, GzipOnly) == Z_OK;
        // The interface is older than const; inputs are not written to.
        m_stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
        m_left = packed.size();
    }
    ~Inflater() { inflateEnd(&m_stream); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    enum class State { Going, MemberEnds, CutOff, Damaged };

    State Next(std::string_view& unpacked) {
        if (!m_ready)
            return State::Damaged;
        const auto offered =
            static_cast<uInt>(std::min<std::size_t>(m_left, std::numeric_limits<uInt>::max()));
        m_stream.avail_in = offered;
        m_stream.next_out = reinterpret_cast<Bytef*>(m_chunk.data());
        m_stream.avail_out = static_cast<uInt>(m_chunk.size());
        const int result = inflate(&m_stream, Z_NO_FLUSH);
        m_left -= offered - m_stream.avail_in;
        unpacked = {m_chunk.data(), m_chunk.size() - m_stream.avail_out};
        if (result == Z_STREAM_END)
            return State::MemberEnds;
        if (result == Z_BUF_ERROR || (result == Z_OK && m_left == 0 && m_stream.avail_out != 0))
            return State::CutOff;
        return result == Z_OK ? State::Going : State::Damaged;
    }

    std::string_view Rest() const { return {reinterpret_cast<const char*>(m_stream.next_in), m_left}; }
    void BeginMember() { m_ready = inflateReset(&m_stream) == Z_OK; }

private:
    z_stream m_stream{};
    std::vector<char> m_chunk = std::vector<char>(ChunkSize);
    std::size_t m_left = 0;
    bool m_ready = false;
};

} // namespace

bool IsGzip(std::string_view bytes) {
    return bytes.starts_with(Magic);
}

const char* Unpack(std::string_view packed, std::size_t longest, std::string& unpacked,
                   ReadingProgress* progress) {
    using State = Inflater::State;
    Inflater inflater(packed);
    const std::size_t most = std::min(longest, packed.size() * MostTimesLarger);
    unpacked.reserve(std::min({most, SizeSaidAtTheEnd(packed), packed.size() * MostTimesReserved}));
    PhaseProgress phase(progress, ReadingProgress::Phase::File, packed.size(), ChunkSize);
    for (;;) {
        phase.Reach(packed.size() - inflater.Rest().size());
        std::string_view chunk;
        const State state = inflater.Next(chunk);
        if (unpacked.size() + chunk.size() > most)
            return "is packed, and holds more than 4 GB or 1,000 times its size";
        unpacked += chunk;
        if (state == State::CutOff)
            return "is packed and cut off";
        if (state == State::Damaged)
            return "is packed and damaged";
        if (state != State::MemberEnds)
            continue;
        const std::string_view rest = inflater.Rest();
        if (rest.find_first_not_of('\0') == std::string_view::npos) // tapes and disks pad with zeros
            return nullptr;
        if (Magic.starts_with(rest))
            return "is packed and cut off";
        if (!IsGzip(rest))
            return "is packed, and something else follows";
        inflater.BeginMember();
    }
}

std::string Pack(std::string_view bytes) {
    constexpr int GzipForm = 15 + 16;
    constexpr int UsualMemory = 8;
    z_stream stream{};
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, GzipForm, UsualMemory, Z_DEFAULT_STRATEGY) !=
        Z_OK)
        throw std::bad_alloc();
    const std::unique_ptr<z_stream, int (*)(z_stream*)> end(&stream, deflateEnd);
    std::string packed;
    std::vector<char> chunk(ChunkSize);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
    std::size_t left = bytes.size();
    int result = Z_OK;
    while (result == Z_OK || result == Z_BUF_ERROR) {
        const auto offered = static_cast<uInt>(std::min<std::size_t>(left, std::numeric_limits<uInt>::max()));
        stream.avail_in = offered;
        stream.next_out = reinterpret_cast<Bytef*>(chunk.data());
        stream.avail_out = static_cast<uInt>(chunk.size());
        result = deflate(&stream, offered == left ? Z_FINISH : Z_NO_FLUSH);
        left -= offered - stream.avail_in;
        packed.append(chunk.data(), chunk.size() - stream.avail_out);
    }
    return packed;
}

} // namespace korvel::inspector
