#include "sound_file.h"

#include <sndfile.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <system_error>

#include "base/file_io.h"
#include "dsp.h"

namespace brevane::soundgen {

bool wantsWav(const std::filesystem::path& file) {
    std::string ext = file.extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ext == ".wav";
}

namespace {

// libsndfile writing into memory, so the file itself is written whole in one go.
struct Memory {
    std::string data;
    sf_count_t pos = 0;
};

sf_count_t memLength(void* user) {
    return static_cast<sf_count_t>(static_cast<Memory*>(user)->data.size());
}

sf_count_t memSeek(sf_count_t offset, int whence, void* user) {
    auto* m = static_cast<Memory*>(user);
    const sf_count_t base = whence == SEEK_SET   ? 0
                            : whence == SEEK_CUR ? m->pos
                                                 : static_cast<sf_count_t>(m->data.size());
    m->pos = std::max<sf_count_t>(0, base + offset);
    return m->pos;
}

sf_count_t memRead(void* ptr, sf_count_t count, void* user) {
    auto* m = static_cast<Memory*>(user);
    const auto size = static_cast<sf_count_t>(m->data.size());
    const sf_count_t n = std::clamp<sf_count_t>(size - m->pos, 0, count);
    std::memcpy(ptr, m->data.data() + m->pos, static_cast<std::size_t>(n));
    m->pos += n;
    return n;
}

sf_count_t memWrite(const void* ptr, sf_count_t count, void* user) {
    auto* m = static_cast<Memory*>(user);
    const auto end = static_cast<std::size_t>(m->pos + count);
    if (end > m->data.size()) {
        m->data.resize(end, '\0');
    }
    std::memcpy(m->data.data() + m->pos, ptr, static_cast<std::size_t>(count));
    m->pos += count;
    return count;
}

sf_count_t memTell(void* user) {
    return static_cast<Memory*>(user)->pos;
}

}  // namespace

std::string writeSound(const std::filesystem::path& file, const std::vector<std::int16_t>& pcm) {
    SF_VIRTUAL_IO io{memLength, memSeek, memRead, memWrite, memTell};
    Memory mem;
    SF_INFO info{};
    info.samplerate = kRate;
    info.channels = 1;
    info.format = (wantsWav(file) ? SF_FORMAT_WAV : SF_FORMAT_FLAC) | SF_FORMAT_PCM_16;
    SNDFILE* sf = sf_open_virtual(&io, SFM_WRITE, &info, &mem);
    if (sf == nullptr) {
        return std::string("cannot encode ") + file.string() + ": " + sf_strerror(nullptr);
    }
    const auto frames = static_cast<sf_count_t>(pcm.size());
    const sf_count_t written = sf_write_short(sf, pcm.data(), frames);
    if (sf_close(sf) != 0 || written != frames) {
        return "cannot encode " + file.string();
    }
    std::error_code ec;
    std::filesystem::create_directories(file.parent_path(), ec);
    if (ec) {
        return "cannot create " + file.parent_path().string() + ": " + ec.message();
    }
    if (!writeFileAtomically(file, mem.data)) {
        return "cannot write " + file.string();
    }
    return {};
}

std::optional<SoundData> readSound(const std::filesystem::path& file) {
    SF_INFO info{};
    SNDFILE* sf = sf_open(file.c_str(), SFM_READ, &info);
    if (sf == nullptr) {
        return std::nullopt;
    }
    SoundData d;
    d.rate = info.samplerate;
    d.channels = info.channels;
    d.majorFormat = info.format & SF_FORMAT_TYPEMASK;
    d.subtype = info.format & SF_FORMAT_SUBMASK;
    d.samples.resize(static_cast<std::size_t>(info.frames) *
                     static_cast<std::size_t>(info.channels));
    const sf_count_t got = sf_readf_short(sf, d.samples.data(), info.frames);
    sf_close(sf);
    if (got != info.frames) {
        return std::nullopt;
    }
    return d;
}

}  // namespace brevane::soundgen
