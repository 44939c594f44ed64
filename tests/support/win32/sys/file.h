// In `mondo.h`.
#pragma once
