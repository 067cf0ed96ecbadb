// Feeds documents from outside to what reads them: `--document=NAME` says which. What is read must come back the same
// when it is written and read again.

#include "Localization/StringsTable.h"
#include "Media/RemoteManifest.h"
#include "Media/RemoteVideoCacheState.h"
#include "Platform/Qt/DefaultsDocument.h"
#include "Recording/InFlightSessionMarker.h"

#include <cstdlib>
#include <functional>
#include <map>
#include <QtCore/QTemporaryFile>

using namespace tomcatto;

namespace {

void require(bool isRight)
{
    if (!isRight)
        std::abort();
}

void readManifest(const QByteArray &text)
{
    if (const auto manifest = decodedManifest(text))
        require(decodedManifest(encoded(*manifest)) == manifest);
}

void readState(const QByteArray &text)
{
    // Instants are written to the second.
    if (const auto state = decodedCacheState(text)) {
        const auto written = decodedCacheState(encoded(*state));
        require(written && decodedCacheState(encoded(*written)) == written);
    }
}

void readMarker(const QByteArray &text)
{
    if (const auto marker = decodedMarker(text))
        require(decodedMarker(encoded(*marker)) == marker);
}

void readDefaults(const QByteArray &text)
{
    if (const auto document = DefaultsDocument::parse(text)) {
        const auto written = DefaultsDocument::parse(document->text());
        require(written && written->text() == document->text());
    }
}

void readStrings(const QByteArray &text)
{
    static QTemporaryFile file;
    require(file.isOpen() || file.open());
    require(file.resize(0) && file.seek(0) && file.write(text) == text.size() && file.flush());
    const auto table = readStringsTable(file.fileName());
    require(!table || !table->text(QStringLiteral("\"")));
}

std::function<void(const QByteArray &)> reader;

}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const std::map<std::string, void (*)(const QByteArray &)> readers{{"--document=manifest", readManifest},
                                                                             {"--document=state", readState},
                                                                             {"--document=marker", readMarker},
                                                                             {"--document=defaults", readDefaults},
                                                                             {"--document=strings", readStrings}};
    // The fuzzer passes over what begins with two dashes.
    for (int place = 1; place < *argc; ++place) {
        if (const auto found = readers.find((*argv)[place]); found != readers.end())
            reader = found->second;
    }
    require(static_cast<bool>(reader));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    reader(QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    return 0;
}
