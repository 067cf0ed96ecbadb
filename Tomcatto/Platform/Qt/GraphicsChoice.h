#pragma once

namespace tomcatto {

/// Chooses how views are drawn, once and before the first window: by the processor, unless a graphics processor is
/// certain to do it. Where the environment says how, that holds.
///
/// A guess for the graphics processor that turns out wrong ends in a software OpenGL, which draws everything twice as
/// slowly and takes more than twice the memory (measured for the panel: 115 MB against 43 MB). The other mistake costs
/// little: the views are flat and mostly still.
void chooseGraphics();

}
