<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sv_SE">
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Spara</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Spara alla</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öppna</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>Yes to &amp;All</source>
        <translation>Ja till &amp;alla</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nej</translation>
    </message>
    <message>
        <source>N&amp;o to All</source>
        <translation>N&amp;ej till alla</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Avbryt</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Försök igen</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Ignorera</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Stäng</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Avbryt</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Förkasta</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hjälp</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Verkställ</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Återställ</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Återställ standard</translation>
    </message>
</context>
<context>
    <name>QDialogButtonBox</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>Look in:</source>
        <translation>Titta i:</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Bakåt</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Gå bakåt</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Framåt</translation>
    </message>
    <message>
        <source>Go forward</source>
        <translation>Gå framåt</translation>
    </message>
    <message>
        <source>Parent Directory</source>
        <translation>Överordnad mapp</translation>
    </message>
    <message>
        <source>Go to the parent directory</source>
        <translation>Gå till överordnad mapp</translation>
    </message>
    <message>
        <source>Create New Folder</source>
        <translation>Skapa ny mapp</translation>
    </message>
    <message>
        <source>Create a New Folder</source>
        <translation>Skapa en ny mapp</translation>
    </message>
    <message>
        <source>List View</source>
        <translation>Lista</translation>
    </message>
    <message>
        <source>Change to list view mode</source>
        <translation>Visa som lista</translation>
    </message>
    <message>
        <source>Detail View</source>
        <translation>Detaljer</translation>
    </message>
    <message>
        <source>Change to detail view mode</source>
        <translation>Visa detaljer</translation>
    </message>
    <message>
        <source>Sidebar</source>
        <translation>Sidofält</translation>
    </message>
    <message>
        <source>List of places and bookmarks</source>
        <translation>Platser och bokmärken</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Filer</translation>
    </message>
    <message>
        <source>Files of type:</source>
        <translation>Filtyp:</translation>
    </message>
    <message>
        <source>File &amp;name:</source>
        <translation>Fil&amp;namn:</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Öppna</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Spara</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>&amp;Välj</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Byt namn</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Ta bort</translation>
    </message>
    <message>
        <source>Show &amp;hidden files</source>
        <translation>Visa &amp;dolda filer</translation>
    </message>
    <message>
        <source>&amp;New Folder</source>
        <translation>&amp;Ny mapp</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Ny mapp</translation>
    </message>
    <message>
        <source>Directory:</source>
        <translation>Mapp:</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>Alla filer (*)</translation>
    </message>
    <message>
        <source>Recent Places</source>
        <translation>Senaste platser</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Datorn</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 finns redan.
Vill du ersätta den?</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
Filen hittades inte.
Kontrollera att filnamnet är rätt.</translation>
    </message>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation>%1
Mappen hittades inte.
Kontrollera att mappens namn är rätt.</translation>
    </message>
    <message>
        <source>'%1' is write protected.
Do you want to delete it anyway?</source>
        <translation>”%1” är skrivskyddad.
Vill du ta bort den ändå?</translation>
    </message>
    <message>
        <source>Are you sure you want to delete '%1'?</source>
        <translation>Vill du verkligen ta bort ”%1”?</translation>
    </message>
    <message>
        <source>Could not delete directory.</source>
        <translation>Mappen kunde inte tas bort.</translation>
    </message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message>
        <source>Name</source>
        <translation>Namn</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Storlek</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Ändrad</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Datorn</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Dator</translation>
    </message>
    <message>
        <source>File Folder</source>
        <translation>Mapp</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Mapp</translation>
    </message>
    <message>
        <source>Drive</source>
        <translation>Enhet</translation>
    </message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message>
        <source>Drive</source>
        <translation>Enhet</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Mapp</translation>
    </message>
    <message>
        <source>File Folder</source>
        <translation>Mapp</translation>
    </message>
    <message>
        <source>%1 File</source>
        <translation>%1-fil</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fil</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Okänd</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>Å&amp;ngra</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Gör om</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Klipp &amp;ut</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopiera</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Klistra &amp;in</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ta bort</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Markera allt</translation>
    </message>
</context>
</TS>
