#pragma once

/// Asks for a name and writes the open log as ADIF. What goes wrong is told; a cancelled dialog is not.
void ExporteraAdif();
