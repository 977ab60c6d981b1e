#include "workbook/OleFile.h"

#include "base/LateLibrary.h"
#include "base/Text.h"
#include "workbook/WorkbookParts.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile.h>
#include <gsf/gsf-output-memory.h>

namespace velmora {
namespace {

/// With those that it comes with.
const LateLibrary& GsfLibrary() {
    static const LateLibrary library(VELMORA_GSF);
    return library;
}

#define GSF_CALL(function) VELMORA_LATE(GsfLibrary(), function)

struct Release {
    void operator()(void* object) const { GSF_CALL(g_object_unref)(object); }
};
template <typename T> using Owned = std::unique_ptr<T, Release>;

/// While it lives the library does not tell the terminal about damaged files, which are errors of ours.
class Silence {
public:
    Silence()
        : before_(GSF_CALL(g_log_set_default_handler)([](const gchar*, GLogLevelFlags, const gchar*, gpointer) {},
                                                      nullptr)) {}
    ~Silence() { GSF_CALL(g_log_set_default_handler)(before_, nullptr); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    const GLogFunc before_;
};

const guint8* Bytes(std::string_view bytes) {
    return reinterpret_cast<const guint8*>(bytes.data());
}

/// Names are equal whatever their letter case. Null where there is none.
GsfInput* ChildOf(GsfInfile* folder, std::string_view name) {
    for (int i = 0; i < GSF_CALL(gsf_infile_num_children)(folder); ++i)
        if (const char* child = GSF_CALL(gsf_infile_name_by_index)(folder, i); child && EqualsNoCase(child, name))
            return GSF_CALL(gsf_infile_child_by_index)(folder, i);
    return nullptr;
}

} // namespace

std::optional<std::string> ReadOleStream(std::string_view file, std::string_view name) {
    const Silence silence;
    const Owned<GsfInput> input(
        GSF_CALL(gsf_input_memory_new)(Bytes(file), static_cast<gsf_off_t>(file.size()), FALSE));
    const Owned<GsfInfile> folder(GSF_CALL(gsf_infile_msole_new)(input.get(), nullptr));
    if (!folder)
        RaiseDamaged();
    const Owned<GsfInput> stream(ChildOf(folder.get(), name));
    if (!stream)
        return std::nullopt;
    const auto size = static_cast<std::size_t>(GSF_CALL(gsf_input_size)(stream.get()));
    if (size > file.size())
        RaiseDamaged();
    std::string bytes(size, '\0');
    if (size > 0 && !GSF_CALL(gsf_input_read)(stream.get(), size, reinterpret_cast<guint8*>(bytes.data())))
        RaiseDamaged();
    return bytes;
}

std::string WriteOleFile(const char* name, std::string_view stream) {
    const Owned<GsfOutput> memory(GSF_CALL(gsf_output_memory_new)());
    const Owned<GsfOutfile> folder(GSF_CALL(gsf_outfile_msole_new)(memory.get()));
    const Owned<GsfOutput> child(GSF_CALL(gsf_outfile_new_child)(folder.get(), name, FALSE));
    const bool written = GSF_CALL(gsf_output_write)(child.get(), stream.size(), Bytes(stream)) &&
                         GSF_CALL(gsf_output_close)(child.get()) &&
                         GSF_CALL(gsf_output_close)(reinterpret_cast<GsfOutput*>(folder.get()));
    if (!written)
        throw WorkbookError("the workbook cannot be written");
    const guint8* bytes = GSF_CALL(gsf_output_memory_get_bytes)(reinterpret_cast<GsfOutputMemory*>(memory.get()));
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(GSF_CALL(gsf_output_size)(memory.get()))};
}

} // namespace velmora
