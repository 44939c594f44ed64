// A long job of the main form.
#pragma once

#include "app/form1.h"
#include "platform/desktop.h"

namespace app {

class Form1::Lavoro {
public:
    explicit Lavoro(Form1& form);
    ~Lavoro();
    Lavoro(const Lavoro&) = delete;
    Lavoro& operator=(const Lavoro&) = delete;

private:
    Form1& form_;
    platform::LavoroLungo lungo_;
};

}  // namespace app
