/* What pack-skin made. */

#include "foundation/basics/embed.inc"

    .section .rodata.pedlSkin, "a", %progbits
    embed pedlSkin, "skin.packed"

    .section .note.GNU-stack, "", %progbits
