// The storm, driven by bytes: each input is a list of operations.

#include <play.h>

#include <QApplication>

#include <cstdio>
#include <cstdlib>

using namespace Velmora::Figura::Storm;

namespace {

// Longer lists find nothing that short ones do not, only later.
constexpr qsizetype mostOperations = 250;

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QHashSeed::setDeterministicGlobalSeed();
    // Never destroyed: the fuzzer leaves by exit(), when Qt has put its own things away already.
    static const auto *const application = new QApplication(*argc, *argv);
    return application ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const Script script = decode(bytes).first(qMin(decode(bytes).size(), mostOperations));
    const QByteArray fault = play(script);
    if (fault.isEmpty())
        return 0;
    std::fprintf(stderr, "%s\n%s", fault.constData(), toText(script).constData());
    std::abort();
}
