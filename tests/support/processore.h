// A processor without the wide vectors, on one that has them.
#pragma once

#if defined(__x86_64__) && defined(__GNUC__)

/// What the compiler's run-time library found the processor to be, in its own layout.
struct ProcessoreTrovato {
    unsigned int fabbrica;
    unsigned int famiglia;
    unsigned int modello;
    unsigned int capacita;
};
extern "C" ProcessoreTrovato __cpu_model;

namespace support {

/// While one lives, what is compiled twice runs as it is for any processor.
class ProcessoreComune {
public:
    ProcessoreComune() : prima_(__cpu_model.capacita) { __cpu_model.capacita = 0; }
    ProcessoreComune(const ProcessoreComune&) = delete;
    ProcessoreComune& operator=(const ProcessoreComune&) = delete;
    ~ProcessoreComune() { __cpu_model.capacita = prima_; }

private:
    unsigned int prima_;
};

}  // namespace support

#else

namespace support {

/// There is one way only.
class ProcessoreComune {
public:
    ProcessoreComune() {}
    ~ProcessoreComune() {}
};

}  // namespace support

#endif
