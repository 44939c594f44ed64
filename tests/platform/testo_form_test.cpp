#include <gtest/gtest.h>
#include <string>

#include "platform/qt/desktop.h"

namespace platform {
namespace {

TEST(Testo, WhatIsUtf8PassesAsItIs) {
    EXPECT_EQ(q("perché\r\n\tfine"), QString("perché\r\n\tfine"));
    EXPECT_EQ(s("perché\r\n\tfine"), "perché\r\n\tfine");
}

TEST(Testo, EveryByteComesBack) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string testo = {'a', static_cast<char>(byte), 'z'};
        EXPECT_EQ(s(q(testo)), testo) << byte;
        EXPECT_EQ(q(testo).size(), 3) << byte;
    }
}

TEST(Testo, NoControlByteIsShown) {
    for (int byte = 0; byte < 256; ++byte) {
        const QChar c = q(std::string{'a', static_cast<char>(byte)})[1];
        const bool riga = byte == '\t' || byte == '\n' || byte == '\r';
        EXPECT_EQ(c.category() == QChar::Other_Control, riga) << byte;
    }
    EXPECT_EQ(q("\x1b[31mrosso")[0].category(), QChar::Other_Surrogate);
}

}  // namespace
}  // namespace platform
