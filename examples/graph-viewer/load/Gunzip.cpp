#include "Gunzip.h"

#include <zlib.h>

namespace GraphViewer {
namespace {

constexpr int gzipOnly = 16 + MAX_WBITS;

class Inflater
{
public:
    explicit Inflater(const QByteArray &packed)
    {
        // zlib never writes to its input; the type is older than const.
        m_stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(packed.constData()));
        m_stream.avail_in = static_cast<uInt>(packed.size());
        m_open = inflateInit2(&m_stream, gzipOnly) == Z_OK;
    }
    ~Inflater() { inflateEnd(&m_stream); }
    Q_DISABLE_COPY_MOVE(Inflater)

    int next(QByteArray *chunk)
    {
        if (!m_open)
            return Z_MEM_ERROR;
        chunk->resize(64 * 1024);
        m_stream.next_out = reinterpret_cast<Bytef *>(chunk->data());
        m_stream.avail_out = static_cast<uInt>(chunk->size());
        const int state = inflate(&m_stream, Z_NO_FLUSH);
        chunk->chop(static_cast<int>(m_stream.avail_out));
        return state;
    }

private:
    z_stream m_stream = {};
    bool m_open = false;
};

} // namespace

bool Gunzip::isPacked(const QByteArray &data)
{
    return data.startsWith("\x1f\x8b");
}

Gunzip::Result Gunzip::unpack(QByteArray *data, qint64 maximumSize)
{
    Inflater inflater(*data);
    QByteArray unpacked;
    QByteArray chunk;
    int state = Z_OK;
    while (state == Z_OK) {
        state = inflater.next(&chunk);
        unpacked += chunk;
        if (unpacked.size() > maximumSize)
            return Result::TooLarge;
    }
    if (state != Z_STREAM_END)
        return Result::Damaged;
    *data = unpacked;
    return Result::Done;
}

} // namespace GraphViewer
