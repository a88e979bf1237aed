// What reads the answers of a rigctld, its list of radios and the settings of the rigs, on any bytes
// whatever.
//
// The first byte chooses the reader. Beyond crashes and what the sanitizers see, it checks what the readers
// promise.
#include "platform/failure.h"
#include "platform/omnirig/omnirig.h"
#include "platform/omnirig/rigctld.h"
#include "platform/omnirig/rigsettings.h"
#include "platform/textfile.h"
#include "radio/Rigfrekvens.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace platform;
using Kind = rigctld::Answer::Kind;

void Require(bool holds) {
    if (!holds) std::abort();
}

/// The answer as it grows byte by byte: what was taken for whole stays what it was, or becomes garbage.
void WatchAnswer(rigctld::Asked asked, const QByteArray& bytes) {
    bool wasGarbage = false;
    bool wasWhole = false;
    for (qsizetype length = 0; length <= bytes.size(); ++length) {
        const rigctld::Answer answer = rigctld::ReadAnswer(asked, bytes.first(length));
        Require(!(wasGarbage || wasWhole) || answer.kind == Kind::Garbage);
        Require((answer.kind == Kind::Good && asked == rigctld::Asked::Frequency) == (answer.frequency > 0));
        Require((answer.kind == Kind::Refused) || answer.error == 0);
        Require(answer.mode.isEmpty() || asked == rigctld::Asked::Mode);
        if (answer.frequency > 0) {
            const QString units = radio::TioHertz(QString::number(answer.frequency));
            if (const auto shown = radio::FrekvensVisning(units)) {
                const qint64 back = radio::Hertz(radio::Siffror(*shown)).value_or(0);
                Require(back == answer.frequency / 10 * 10);
            }
        }
        rigctld::ModeOf(answer.mode);
        wasGarbage = answer.kind == Kind::Garbage;
        wasWhole = answer.kind == Kind::Good || answer.kind == Kind::Refused;
    }
}

void ReadSettings(const QString& text) {
    try {
        const AllRigSettings rigs = RigSettingsFromText(text);
        for (const RigSettings& rig : rigs) {
            DaemonArguments(rig, 4532);
            if (rig.address.contains(u'"') || rig.port.contains(u'"')) return;
        }
        // What was read is what is written.
        const QString written = RigSettingsToText(rigs);
        Require(RigSettingsToText(RigSettingsFromText(written)) == written);
    } catch (const Failure&) {
        // Not the text of four rigs.
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size) - 1);
    switch (data[0] % 7) {
    case 0:
    case 1:
    case 2:
    case 3:
        WatchAnswer(static_cast<rigctld::Asked>(data[0] % 7),
                    bytes.first(qMin<qsizetype>(bytes.size(), 300)));
        break;
    case 4:
        for (const rigctld::Model& model : rigctld::ReadModels(bytes)) Require(!model.name.isEmpty());
        break;
    case 5: ReadSettings(FromCp1252(bytes)); break;
    default:
        if (const auto address = ReadRigAddress(FromCp1252(bytes)))
            Require(!address->host.isEmpty() && address->port >= 1 && address->port <= 65535);
    }
    return 0;
}
