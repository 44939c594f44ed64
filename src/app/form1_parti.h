// What the main form hands over to.
#pragma once

#include "app/archivio_in_vista.h"
#include "app/form1.h"
#include "app/lavori.h"
#include "app/piede.h"
#include "app/riepilogo.h"
#include "crossword/vista.h"
#include "development/elaboratore.h"
#include "statistics/riempimento.h"
#include "systems/archiviatore.h"
#include "systems/trascinati.h"

namespace app {

struct Form1::Parti {
    Parti(Form1& f, Dialoghi& dialoghi)
        : lavori(f, f.ProgressBar1),
          riepilogo(f.MSFlexGrid2),
          piede(new Piede(f, f.ProgressBar1, {f.Combo3, f.Combo4, f.Combo5})),
          vista(f, {f.MSFlexGrid1, f.CMDnum, f.List1, f.lblngioco}),
          riempimento(f, lavori, vista, {f.MSFlexGrid1, f.Frame3, f.Combo6}),
          elaboratore(f, dialoghi, lavori),
          archiviatore(f, dialoghi),
          archivio(f, {f.Frame7, {f.cmdstat, f.cmdstat2}, f.mnuarchivio}) {
        new systems::Trascinati(f, &f);
    }

    Lavori lavori;
    Riepilogo riepilogo;
    Piede* piede;  ///< owned by the form, as its other controls
    crossword::Vista vista;
    statistics::Riempimento riempimento;
    development::Elaboratore elaboratore;
    systems::Archiviatore archiviatore;
    ArchivioInVista archivio;
};

}  // namespace app
