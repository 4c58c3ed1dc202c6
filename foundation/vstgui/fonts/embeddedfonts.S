/* The four faces that cut-fonts made. */

#include "foundation/basics/embed.inc"

    .section .rodata.pedlSans, "a", %progbits
    embed pedlSansRegular, "sans-regular.ttf"
    embed pedlSansBold, "sans-bold.ttf"
    embed pedlSansItalic, "sans-italic.ttf"
    embed pedlSansBoldItalic, "sans-bolditalic.ttf"

    .section .note.GNU-stack, "", %progbits
