// Beside `mondo.h`.
#pragma once

constexpr int O_DIRECTORY = 0;
