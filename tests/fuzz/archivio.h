// Walks an archive of draws as the forms do.
#pragma once

#include "fuzz/ingresso.h"
#include "platform/database.h"
#include "statistics/archivio.h"
#include "statistics/lettore_archivio.h"

namespace fuzz {

inline void scorri(platform::Recordset rs) {
    std::int32_t record = 0;
    for (rs.MoveFirst(); !rs.eof() && record < 400; rs.MoveNext(), ++record) {
        platform::Field campo;
        for (int i = 0; i < 12 && rs.Fields(i, campo).ok(); ++i) {
            const platform::Valore valore = campo.Value();
            const bool pieno = valore.intero() || valore.testo() || valore.data();
            esigi(pieno == !valore.nullo());
        }
    }
    rs.MoveLast();
    rs.Move(-3);
}

inline void apri_archivio(const std::string& file) {
    platform::Database db;
    if (!platform::OpenDatabase(file, false, true, db).ok()) return;
    platform::Recordset rs;
    for (const char* tabella : {"archivio", "archivion", "archivios"}) {
        if (db.OpenRecordset(tabella, rs).ok()) scorri(rs);
    }
    if (db.OpenRecordset(statistics::query_ruota("BA"), rs).ok()) scorri(rs);
    db.Close();
}

}  // namespace fuzz
