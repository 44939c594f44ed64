// Beside `mondo.h`.
#pragma once

#include <sys/un.h>
