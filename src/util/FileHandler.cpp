#include "util/FileHandler.h"

#include <sys/stat.h>

#include <limits>

namespace util {

namespace {

constexpr std::size_t kLargestItem = std::numeric_limits<unsigned>::max();

bool IsDirectory(FILE* stream) {
  struct stat status = {};
  return fstat(fileno(stream), &status) == 0 && S_ISDIR(status.st_mode);
}

template <typename Bytes>
std::size_t ReadWhole(FileHandler& file, Bytes& data) {
  if (!file) {
    return 0;
  }
  const std::size_t size = file.fileSize();
  data.resize(size <= kLargestItem ? size : 0);
  return file.read(data.data(), static_cast<unsigned>(data.size()), 1);
}

template <typename Bytes>
std::size_t WriteWhole(FileHandler& file, const Bytes& data) {
  return data.size() <= kLargestItem ? file.write(data.data(), static_cast<unsigned>(data.size()))
                                     : 0;
}

}  // namespace

FileHandler::FileHandler() = default;

FileHandler::FileHandler(const char* path, const char* mode) { FileHandler::open(path, mode); }

FileHandler::~FileHandler() { FileHandler::close(); }

FILE* FileHandler::open(const char* path, const char* mode) {
  FileHandler::close();
  stream = std::fopen(path, mode);
  if (stream != nullptr && IsDirectory(stream)) {
    FileHandler::close();
  }
  return stream;
}

void FileHandler::close() {
  if (stream != nullptr) {
    std::fclose(stream);
    stream = nullptr;
  }
}

std::size_t FileHandler::read(std::vector<unsigned char>& data) { return ReadWhole(*this, data); }

std::size_t FileHandler::read(std::string& data) { return ReadWhole(*this, data); }

std::size_t FileHandler::read(void* buffer, unsigned itemSize, unsigned itemCount) {
  if (buffer == nullptr || stream == nullptr) {
    return 0;
  }
  return std::fread(buffer, itemSize, itemCount, stream);
}

std::size_t FileHandler::write(const std::vector<unsigned char>& data) {
  return WriteWhole(*this, data);
}

std::size_t FileHandler::write(const std::string& data) { return WriteWhole(*this, data); }

std::size_t FileHandler::write(const void* buffer, unsigned size) {
  if (stream == nullptr || size == 0 || buffer == nullptr) {
    return 0;
  }
  return std::fwrite(buffer, size, 1, stream);
}

std::size_t FileHandler::fileSize() {
  if (stream == nullptr) {
    return 0;
  }
  const long position = std::ftell(stream);
  if (position < 0 || std::fseek(stream, 0, SEEK_END) != 0) {
    return 0;
  }
  const long size = std::ftell(stream);
  const bool restored = std::fseek(stream, position, SEEK_SET) == 0;
  return restored && size > 0 ? static_cast<std::size_t>(size) : 0;
}

FileHandler::operator bool() const { return stream != nullptr; }

bool FileHandler::operator!() const { return stream == nullptr; }

FileHandler::operator FILE*() const { return stream; }

}  // namespace util
