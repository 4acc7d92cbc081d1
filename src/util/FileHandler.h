#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include "../util/Export.h"

namespace util {

/// Owns one C standard I/O stream and reads or writes it in whole blocks.
///
///     util::FileHandler file("values.bin", "rb");
///     std::string text;
///     if (!file || file.read(text) == 0) {
///       // not there, not readable, a directory, or empty
///     }
///
/// A handle is closed (no stream) or open. Failure is told by results alone: 0 items, or a handle
/// that is closed after `open`. Nothing here throws but a container that cannot grow.
///
/// The whole-file reads and the vector and string writes call `fileSize` and the raw `read` and
/// `write` through the virtual table, so that a derived class that overrides those three changes
/// them all.
///
/// Threads: a handle has no lock and belongs to one thread at a time; even `fileSize` moves the
/// stream's position and puts it back.
class VEHICLE_UNITS_EXPORT FileHandler {
 public:
  /// A closed handle.
  FileHandler();

  /// A handle on which `open(path, mode)` has been called.
  FileHandler(const char* path, const char* mode);

  FileHandler(const FileHandler&) = delete;
  FileHandler& operator=(const FileHandler&) = delete;

  /// Closes the stream if there is one.
  virtual ~FileHandler();

  /// Closes the stream if there is one, then opens `path` as `fopen` does and returns the new
  /// stream: null when it could not be opened or is a directory. The handle is then closed,
  /// whatever was open before.
  virtual FILE* open(const char* path, const char* mode);

  /// Closes the stream if there is one. Bytes that only now go to the file and do not fit there (a
  /// full device) are lost without a word: see the raw `write`.
  virtual void close();

  /// Resizes `data` to `fileSize()` and reads that many bytes as one item from the current
  /// position. Returns 1 when all were read, 0 otherwise: so it succeeds only on a stream that
  /// stands at its start. A short read leaves `data` at full size: at its front what was read,
  /// behind that what it held there before, or zero bytes where it grew. A size of 0, one that
  /// cannot be told and one that no raw read can name (above the largest `unsigned`) leave it
  /// empty; a closed handle leaves it as it was.
  virtual std::size_t read(std::vector<unsigned char>& data);
  /// The same into a string.
  virtual std::size_t read(std::string& data);

  /// Reads up to `itemCount` items of `itemSize` bytes each and returns the number of whole items
  /// read; 0 when `buffer` is null or the handle closed.
  virtual std::size_t read(void* buffer, unsigned itemSize, unsigned itemCount);

  /// Writes all bytes of `data` as one item. Returns 1 when all were written; 0 otherwise, as for
  /// empty `data` and for more bytes than the largest `unsigned`, of which none are written.
  virtual std::size_t write(const std::vector<unsigned char>& data);
  /// The same of a string.
  virtual std::size_t write(const std::string& data);

  /// Writes `size` bytes as one item and returns 1 when all were written; 0 otherwise, as when
  /// `buffer` is null, `size` is 0 or the handle closed. Written means that the stream has taken
  /// them, as `fwrite` does: it may keep them in its buffer. Whether the file holds them, tells
  /// `std::fflush(file) == 0` before the handle is closed.
  virtual std::size_t write(const void* buffer, unsigned size);

  /// The file's size in bytes, with the stream's position left where it was; 0 when the handle is
  /// closed or the size cannot be told (a stream that cannot seek).
  virtual std::size_t fileSize();

  /// True while a stream is open.
  virtual operator bool() const;

  /// True while no stream is open.
  virtual bool operator!() const;

  /// The stream itself for use with other standard I/O calls, null when closed; the handle keeps
  /// ownership.
  virtual operator FILE*() const;

 private:
  FILE* stream = nullptr;
};

}  // namespace util
