// What a start tells of a suite folder that nothing can be made in.
#pragma once

class QWidget;

namespace app {

/// Says what keeps every elaboration from its file: no tables at all, or nowhere to write.
void avvisa_mancanze(QWidget* padre);

}  // namespace app
