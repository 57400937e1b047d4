#include "session/PanelSurfaces.h"

namespace pulselark {

Surface* picIA = &NoSurface();
Surface* picIB = &NoSurface();
Surface* picIAP = &NoSurface();
Surface* picIBP = &NoSurface();
Surface* picSA = &NoSurface();
Surface* picSB = &NoSurface();
Surface* picGCA = &NoSurface();
Surface* picGCB = &NoSurface();
Surface* picHRVA = &NoSurface();
Surface* picHRVB = &NoSurface();
Surface* picHisA = &NoSurface();
Surface* picHisB = &NoSurface();
Surface* picHRVPowerA = &NoSurface();
Surface* picHRVPowerB = &NoSurface();
Surface* picQS = &NoSurface();
Surface* picGGZ = &NoSurface();
Surface* picSD = &NoSurface();
Surface* picBWave = &NoSurface();
Surface* picGame = &NoSurface();

void ResetPanelSurfaces() {
    for (Surface** panel :
         {&picIA, &picIB, &picIAP, &picIBP, &picSA, &picSB, &picGCA, &picGCB, &picHRVA, &picHRVB, &picHisA,
          &picHisB, &picHRVPowerA, &picHRVPowerB, &picQS, &picGGZ, &picSD, &picBWave, &picGame})
        *panel = &NoSurface();
}

} // namespace pulselark
