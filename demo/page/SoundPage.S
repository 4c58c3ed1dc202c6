/* The page and its script, found through the include path. */

    .macro embed name, file
    .globl \name
    .hidden \name
    .type \name, %object
\name:
    .incbin "\file"
    .size \name, . - \name
    .globl \name\()End
    .hidden \name\()End
\name\()End:
    .byte 0
    .endm

    .section .rodata.pedlSoundPage, "a", %progbits
    embed pedlSoundPage, soundPage.html
    embed pedlSoundScript, soundPage.js

    .section .note.GNU-stack, "", %progbits
