/* The page and its script. */

#include "foundation/basics/embed.inc"

    .section .rodata.pedlSoundPage, "a", %progbits
    embed pedlSoundPage, "soundPage.html"
    embed pedlSoundScript, "soundPage.js"

    .section .note.GNU-stack, "", %progbits
