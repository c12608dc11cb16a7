// The least that a window on GTK 3 costs.
#include <gtk/gtk.h>

int main(int argc, char** argv) {
    gtk_init(&argc, &argv);
    GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_default_size(GTK_WINDOW(window), 640, 580);
    gtk_container_add(GTK_CONTAINER(window), gtk_label_new("A window with one line of text."));
    gtk_widget_show_all(window);
    gtk_main();
}
