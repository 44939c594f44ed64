// A file that another holds for itself alone.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>

namespace support {

/// Holds the file as long as it lives.
class Tenuto {
public:
    explicit Tenuto(const std::string& file) : fd_(::open(file.c_str(), O_RDONLY | O_CLOEXEC)) {
        EXPECT_GE(fd_, 0) << file;
        EXPECT_EQ(::flock(fd_, LOCK_EX | LOCK_NB), 0) << file;
    }
    ~Tenuto() { ::close(fd_); }
    Tenuto(const Tenuto&) = delete;
    Tenuto& operator=(const Tenuto&) = delete;

private:
    int fd_;
};

}  // namespace support
