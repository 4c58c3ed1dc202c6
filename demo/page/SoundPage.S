/* The page, found through the include path. */

    .section .rodata.pedlSoundPage, "a", %progbits
    .globl pedlSoundPage
    .hidden pedlSoundPage
    .type pedlSoundPage, %object
pedlSoundPage:
    .incbin "soundPage.html"
    .size pedlSoundPage, . - pedlSoundPage
    .globl pedlSoundPageEnd
    .hidden pedlSoundPageEnd
pedlSoundPageEnd:
    .byte 0

    .section .note.GNU-stack, "", %progbits
