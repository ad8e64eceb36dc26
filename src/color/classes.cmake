# The colour classes of libZQprimitives, one name per header group, and what they share.
set( color_classes color/coRgbColor color/coHsvColor color/coSpectrum )
list( APPEND headers color/export.h color/forward.h )
list( APPEND sources color/colorKernels.cpp )
list( APPEND fragments color/coLuminance.inline )
