#include "vestara/files/gzip_source.h"

#include <zlib.h>

#include <array>
#include <limits>
#include <new>

#include "vestara/files/file_source.h"
#include "vestara/foundation/failure.h"

namespace vestara {
namespace {

Failure damaged(const std::string& name) {
  return {FailureKind::file, name + ": the gzip file is damaged or cut off; fetch it again"};
}

/// zlib's state for one file.
class Inflater {
 public:
  explicit Inflater(std::string_view bytes) : rest_(bytes) {
    constexpr int gzip_only = 16 + MAX_WBITS;
    static_assert(largest_input < std::numeric_limits<uInt>::max());
    // NOLINTNEXTLINE(*-reinterpret-cast,*-const-cast): zlib does not write there
    stream_.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(rest_.data()));
    stream_.avail_in = static_cast<uInt>(rest_.size());
    if (::inflateInit2(&stream_, gzip_only) != Z_OK) throw std::bad_alloc();
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;
  ~Inflater() { ::inflateEnd(&stream_); }

  /// The next bytes, none at the end of a member.
  std::string_view next(const std::string& name) {
    stream_.next_out = block_.data();
    stream_.avail_out = static_cast<uInt>(block_.size());
    const int state = ::inflate(&stream_, Z_NO_FLUSH);
    if (state == Z_MEM_ERROR) throw std::bad_alloc();
    ends_ = state == Z_STREAM_END;
    const size_t made = block_.size() - stream_.avail_out;
    // Without more input nothing comes: the file is cut off.
    if (state != Z_OK && !ends_) throw damaged(name);
    return {reinterpret_cast<const char*>(block_.data()), made};  // NOLINT(*-reinterpret-cast): zlib's bytes
  }
  bool ends() const { return ends_; }
  /// What follows the member, of which another one may be the first part.
  std::string_view behind() const { return rest_.substr(rest_.size() - stream_.avail_in); }

 private:
  std::string_view rest_;
  z_stream stream_{};
  std::array<Bytef, 65536> block_{};
  bool ends_ = false;
};

}  // namespace

bool is_gzip(std::string_view bytes) { return bytes.starts_with("\x1F\x8B\x08"); }

std::string unpacked_gzip(std::string_view bytes, const std::string& name) {
  std::string text;
  do {
    Inflater member(bytes);
    while (!member.ends()) {
      text.append(member.next(name));
      if (text.size() > largest_input) throw too_large(name);
    }
    bytes = member.behind();
  } while (is_gzip(bytes));
  return text;
}

}  // namespace vestara
